#include "events/performance/apm_report.h"

#include "core/client_context.h"
#include "core/context_entities.h"
#include "core/host.h"

namespace oet {

using orbo_entity::ApmDeviceEntity;

void FillApmDeviceEntity(ApmDeviceEntity& entity) {
  const ClientFactsView facts = RefreshedClientFacts();
  FillDeviceContext(entity, *facts);
  SetUnlessEmpty(&entity, &ApmDeviceEntity::SetCpuName, facts->cpu_name);
  SetUnlessEmpty(&entity, &ApmDeviceEntity::SetGpuModel, facts->gpu_model);
  SetUnlessEmpty(&entity, &ApmDeviceEntity::SetResolution, facts->resolution);
  SetUnlessEmpty(&entity, &ApmDeviceEntity::SetManufacturer, facts->system_manufacturer);
  if (facts->total_ram_gb > 0) entity.SetMemorySizeGb(static_cast<int64_t>(facts->total_ram_gb));
}

}  // namespace oet
