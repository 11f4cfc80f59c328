// The meeting identity (entity 161) as the in-meeting events send it.
#pragma once

#include "oEventTracker/OrboPAAP/tracking.h"
#include "oKstPlatform/entities.h"

namespace oet {

// Whether the meeting's raw identity may leave the client.
enum class IdentityHiding { kOff, kOn };

// Fills the meeting identity from the tracking record; does nothing without an entity.
//  - The number (operation 2) first: the record's meeting number, or with hiding on always
//    kNoMeetingNumber, so that the number is never reported.
//  - Then the text (operation 1), always set, an empty one as empty: the record's meeting id; with
//    hiding on, its short key instead (MapIdToShortKey), where an empty meeting id is first replaced by
//    the meeting number in decimal when the number is given.
void FillMeetingIdentity(orbo_entity::MeetingIdentityFields* identity,
                         const OrboPAAP::MeetingTrackingInfo_s& tracking, IdentityHiding hiding);

}  // namespace oet
