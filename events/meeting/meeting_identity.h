// The meeting identity (entity 161) as the in-meeting events send it.
#pragma once

#include "oEventTracker/OrboPAAP/tracking.h"
#include "oKstPlatform/entities.h"

namespace oet {

// Fills the meeting identity from the tracking record, hidden, so that the meeting's raw identity
// never leaves the client; does nothing without an entity.
//  - The number (operation 2) first: always kNoMeetingNumber, so that the number is never reported.
//  - Then the text (operation 1), always set, an empty one as empty: the short key of the record's
//    meeting id (MapIdToShortKey), where an empty meeting id is first replaced by the meeting number in
//    decimal when the number is given.
void FillMeetingIdentity(orbo_entity::MeetingIdentityFields* identity,
                         const OrboPAAP::MeetingTrackingInfo_s& tracking);

}  // namespace oet
