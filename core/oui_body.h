// The body of the OUI-framework events (183), shared by the main window's event and the in-meeting one.
#pragma once

#include "oKstPlatform/entities.h"

namespace oet {

// Sets the six values in the order value 3, 1, 2, 5, 4, 6, then clears the entity's 16th and 1st
// fields, which these events never fill (clearing them every time is deliberate). `Record` is
// OrboPTPAAP::PTOUIInteractInfo_s or OrboPAAP::MTOUIInteractInfo_s (value1 .. value6).
template <class Record>
void FillOuiBody(orbo_entity::OuiBodyFields& body, const Record& info) {
  body.SetValue3(info.value3);
  body.SetValue1(info.value1);
  body.SetValue2(info.value2);
  body.SetValue5(info.value5);
  body.SetValue4(info.value4);
  body.SetValue6(info.value6);
  body.ClearSixteenthField();
  body.ClearFirstField();
}

}  // namespace oet
