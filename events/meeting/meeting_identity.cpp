#include "events/meeting/meeting_identity.h"

#include <string>

#include "core/host.h"
#include "core/short_key.h"

namespace oet {

void FillMeetingIdentity(orbo_entity::MeetingIdentityFields* identity,
                         const OrboPAAP::MeetingTrackingInfo_s& tracking) {
  if (identity == nullptr) return;
  identity->SetIdentityNumber(OrboPAAP::kNoMeetingNumber);
  if (tracking.meeting_id.IsEmpty() && tracking.meeting_number != OrboPAAP::kNoMeetingNumber) {
    const Kst::CStringT<char> number(std::to_string(tracking.meeting_number));
    identity->SetIdentityText(TextOf(MapIdToShortKey(number)));
  } else {
    identity->SetIdentityText(TextOf(MapIdToShortKey(tracking.meeting_id)));
  }
}

}  // namespace oet
