// Names that make recorded host calls readable: the schema name of an entity type and the short form
// of an operation's name, shared by the readable view and the event catalog.
#pragma once

#include <cstdint>
#include <string>

#include "testing/recording_host.h"

namespace oet_replay {

// The entity type's name in the entity schema (oKstPlatform/entity_schema.def), or "" for a type the
// schema does not declare.
std::string EntitySchemaName(int32_t type);
// "283 ClientEntity"; a type the schema does not declare shows as its number alone.
std::string EntityTitle(int32_t type);

// The field an operation writes, as a person reads it: "SetGpuModel" -> "GpuModel", "ClearGpuModel" ->
// "GpuModel"; other names stay as they are ("Prepare").
std::string FieldName(const std::string& op_name, oet_testing::OpKind kind);

// An operation's argument as text: strings quoted as JSON strings (a text that is not UTF-8 in its
// byte form, {"bytes":"61 E2 82"}),
// integers in decimal, true/false, doubles exactly (the shortest text that reads back as the same
// double; NaN, inf, -inf and -0 as such). Empty for operations without an argument.
std::string ValueText(const oet_testing::OpValue& value);
std::string DoubleText(double value);

}  // namespace oet_replay
