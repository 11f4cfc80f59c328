// The in-meeting meeting event: a context list chosen by the records and the interaction kind, marked
// through the entities' attribute holders, and the meeting body (289).
#include <string>
#include <utility>

#include "core/client_context.h"
#include "core/context_entities.h"
#include "core/event.h"
#include "core/host.h"
#include "core/timestamp.h"
#include "core/vanity_domain.h"
#include "oEventTracker/OrboPAAP.h"

namespace OrboPAAP {
namespace {

using namespace orbo_entity;

// The marking: every entity's holder of this selector gets this value when the record's tier is 3.
constexpr int32_t kHolderSelector = -3;
constexpr int32_t kMarkingTier = 3;
constexpr int32_t kMark = 3;

// The meeting role whose derived mode is 2 (every other role gives 1).
constexpr int32_t kRoleOfMode2 = 3;
constexpr int32_t kKind569 = 569;

// The most context entities one event can carry: five always, seven by the records, one by the kind
// (302, 300 or 301, which exclude each other) and 286 (only kind 569, which is in none of those sets).
constexpr size_t kMaxContextEntities = 5 + 7 + 1 + 1;

void Mark(EntityBase* entity, int32_t tier) {
  AttributeHolder* holder = entity->GetAttributeHolder(kHolderSelector);
  if (holder != nullptr && tier == kMarkingTier) holder->SetValue(kMark);
}

// Which kind-detail entity an interaction kind adds. The sets are the back end's and deliberately
// uneven: keep them exactly as they are.
enum class KindDetail { kNone, k302, k300, k301 };

KindDetail KindDetailOf(int32_t kind) {
  switch (kind) {
    case 429:
    case 513:
      return KindDetail::k302;
    case 494:
    case 495:
    case 496:
    case 497:
    case 498:
    case 499:
    case 500:
    case 501:
    case 502:
    case 505:
    case 508:
    case 510:
    case 511:
    case 514:
    case 515:
    case 516:
    case 534:
    case 535:
    case 536:
      return KindDetail::k300;
    case 507:
    case 519:
    case 520:
    case 521:
    case 522:
    case 523:
    case 524:
    case 525:
    case 526:
    case 527:
    case 528:
    case 529:
    case 530:
    case 531:
    case 532:
    case 533:
    case 661:
      return KindDetail::k301;
    default:
      return KindDetail::kNone;
  }
}

// A new entity of type E filled by `fill`, or null when the host gives none.
template <class E, class Fill>
E* Build(const oet::EventDraft& event, Fill fill) {
  E* entity = event.Create<E>();
  if (entity != nullptr) fill(*entity);
  return entity;
}

template <class E>
E* BuildKindDetail(const oet::EventDraft& event, const MeetingInteractInfo_s& info) {
  return Build<E>(event, [&](MeetingKindFields& fields) {
    oet::SetOrClear(&fields, &MeetingKindFields::ClearKindText, &MeetingKindFields::SetKindText,
                    info.kind_text);
    fields.SetKindValue(info.kind_value);
  });
}

// Appends the entities the records and the interaction kind call for, in the list's order.
void AddConditionalContext(oet::ContextList& list, const oet::EventDraft& event,
                           const MeetingTrackingInfo_s& tracking, const MeetingInteractInfo_s& info) {
  // The texts' gates look at them as they go out (up to the first NUL); past its gate a text is set.
  const auto reference_text = oet::TextOf(info.reference_text);
  const auto meeting_text = oet::TextOf(tracking.meeting_text);
  const auto share_text = oet::TextOf(tracking.share_text);
  const auto item_text = oet::TextOf(info.item_text);
  if (info.reference_a != 0 && info.reference_b != 0 && info.reference_c != 0 && !reference_text.empty()) {
    list.Add(Build<MeetingReferenceEntity>(event, [&](MeetingReferenceEntity& e) {
      e.SetReferenceText(reference_text);
      e.SetReferenceA(info.reference_a);
      e.SetReferenceB(info.reference_b);
      e.SetReferenceC(info.reference_c);
    }));
  }
  if (!meeting_text.empty()) {
    list.Add(Build<MeetingTextEntity>(event, [&](MeetingTextEntity& e) {
      e.SetMeetingText(meeting_text);
      e.SetInteractionKind(info.interaction_kind);
    }));
  }
  if (tracking.share_number != 0 && !share_text.empty()) {
    list.Add(Build<MeetingShareEntity>(event, [&](MeetingShareEntity& e) {
      e.SetShareText(share_text);
      e.SetShareNumber(tracking.share_number);
    }));
  }
  if (info.pair_gate_a != 0 && info.pair_gate_b != 0) {
    list.Add(Build<MeetingPairEntity>(event, [&](MeetingPairEntity& e) {
      e.SetPairA(info.pair_gate_a);
      e.SetPairB(info.pair_gate_b);
    }));
  }
  if (info.extra_gate != 0) {
    list.Add(Build<MeetingExtraEntity>(event, [&](MeetingExtraEntity& e) {
      e.SetExtraValue(info.extra_gate);
      e.SetMeetingType(tracking.meeting_type);
    }));
  }
  if (!item_text.empty()) {
    list.Add(Build<MeetingItemEntity>(event, [&](MeetingItemEntity& e) {
      e.SetItemText(item_text);
      e.SetItemIndex(info.item_index);
    }));
  }
  if (info.option_value != 0 && !meeting_text.empty()) {
    list.Add(Build<MeetingOptionEntity>(event, [&](MeetingOptionEntity& e) {
      e.SetOptionFlag(info.option_flag != 0);
      e.SetOptionValue(info.option_value);
    }));
  }
  switch (KindDetailOf(info.interaction_kind)) {
    case KindDetail::k302:
      list.Add(BuildKindDetail<MeetingKindEntity302>(event, info));
      break;
    case KindDetail::k300:
      list.Add(BuildKindDetail<MeetingKindEntity300>(event, info));
      break;
    case KindDetail::k301:
      list.Add(BuildKindDetail<MeetingKindEntity301>(event, info));
      break;
    case KindDetail::kNone:
      break;
  }
  if (info.interaction_kind == kKind569 && info.kind_569_value != 0) {
    list.Add(Build<MeetingKind569Entity>(
        event, [&](MeetingKind569Entity& e) { e.SetKind569Value(info.kind_569_value); }));
  }
}

void FillMeetingBody(MeetingBodyEntity& body, const MeetingTrackingInfo_s& tracking,
                     const MeetingInteractInfo_s& info) {
  Mark(&body, info.tier);
  body.SetMode(info.mode != 0 ? info.mode : tracking.meeting_role == kRoleOfMode2 ? 2 : 1);
  body.SetMeetingValue1(info.first_code);
  body.SetMeetingValue2(info.second_code);
  body.SetMeetingValue3(info.third_code);
  body.SetMeetingValue4(info.fourth_code);
  body.SetMeetingValue5(info.interaction_kind);
  body.SetMeetingValue6(info.sixth_code);
  body.SetMeetingValue7(info.seventh_code);
  body.SetMeetingDetail(info.detail);
  oet::SetUnlessEmpty(&body, &MeetingBodyEntity::SetMeetingText,
                      info.label);  // an empty label leaves it alone
  body.SetMeetingFlag(info.body_flag != 0);
  if (tracking.body_number != 0) body.SetMeetingNumber(tracking.body_number);
  oet::SetOrClearValue(&body, &MeetingBodyEntity::ClearStartTime, &MeetingBodyEntity::SetStartTime,
                       oet::FormatUtcTimestamp(tracking.start_time));  // a zero time clears it
}

}  // namespace

int TrackingMeetingInteractEvent(const MeetingTrackingInfo_s& tracking, const MeetingInteractInfo_s& info) {
  return oet::Guarded([&] {
    auto event = oet::EventDraft::Open(oet::Lookup::kWebServiceAndTelemetry);
    if (!event) return 0;
    if (info.first_code == 0 || info.second_code == 0 || info.third_code == 0 || info.interaction_kind == 0) {
      return event.Destroy();  // the fourth code may be 0
    }
    if (oet::RefreshedClientFacts()->os_name.IsEmpty()) return event.Destroy();  // never filled

    oet::ContextList list(kMaxContextEntities);
    list.Add(event.Create<TrackingInfoEntity>());  // without fields
    list.Add(oet::BuildClientEntity(event.telemetry(), event.web_service()));
    list.Add(event.Create<MeetingContextEntity297>());
    list.Add(Build<MeetingParticipantEntity>(event, [&](MeetingParticipantEntity& e) {
      oet::SetOrClear(&e, &MeetingParticipantEntity::ClearConferenceId,
                      &MeetingParticipantEntity::SetConferenceId, tracking.conference_id);
      oet::SetOrClear(&e, &MeetingParticipantEntity::ClearParticipantId,
                      &MeetingParticipantEntity::SetParticipantId, tracking.participant_id);
      e.SetDomainLabel(oet::AccountDomainLabelUtf8(*event.web_service()));
    }));
    list.Add(Build<MeetingSessionEntity>(event, [&](MeetingSessionEntity& e) {
      e.SetMeetingType(tracking.meeting_type);
      oet::SetOrClear(&e, &MeetingSessionEntity::ClearClientSessionId,
                      &MeetingSessionEntity::SetClientSessionId, tracking.client_session_id);
    }));
    AddConditionalContext(list, event, tracking, info);
    for (EntityBase* entity : list.entries())
      Mark(entity, info.tier);
    event.AttachContextAlways(std::move(list));

    if (auto* body = event.Create<MeetingBodyEntity>()) {
      FillMeetingBody(*body, tracking, info);
      event.AttachBody(body);
    }
    return event.Submit(oet::kInMeetingCodes);
  });
}

}  // namespace OrboPAAP
