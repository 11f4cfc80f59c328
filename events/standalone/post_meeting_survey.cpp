// The post-meeting family: the store of the ended meeting's strings, and the survey event, whose body
// (288) alone is sent from the kept meeting strings and the client context, only while a meeting is
// kept; the meeting texts it reports are emptied as it reads them.
#include "core/client_context.h"
#include "core/event.h"
#include "core/host.h"
#include "core/post_meeting.h"
#include "core/vocabulary.h"
#include "oEventTracker/OrboPTPAAP.h"

namespace OrboPTPAAP {

void StoreMeetingInfo4PostEvents(const PostMeetingTrackingInfo_s& info) {
  // The copies are made before the lock is taken, so that a failed allocation leaves the kept strings
  // as they were; nothing is thrown across the boundary.
  oet::Guarded([&] {
    oet::StorePostMeetingStrings(info);
    return 1;
  });
}

int TrackingPostMeetingEvent(const PostMeetingInteractInfo_s& info) {
  return oet::Guarded([&] {
    auto event = oet::EventDraft::Open(oet::Lookup::kTelemetryOnly);
    if (!event) return 0;
    // One read of the kept strings serves the gate and the report, and empties what it reports (texts
    // 1, 2 and 4) whatever happens after it: a meeting stored meanwhile is neither mixed into this
    // report nor cleared by it.
    const oet::PostMeetingStrings kept = oet::TakePostMeetingStrings();
    if (kept.text3.IsEmpty()) return event.Destroy();
    auto* body = event.Create<orbo_entity::PostMeetingEntity>();
    if (body == nullptr) return event.Destroy();
    body->SetMeetingText1(oet::TextOf(kept.text1));
    body->SetMeetingText2(oet::TextOf(kept.text2));
    body->SetWebServiceValue(oet::RefreshedClientFacts()->web_service_value.utf8);
    // The fixed words, made once: three of them are too long for a string's own small buffer.
    static const std::string& kEventName = *new std::string("post-meeting_survey");  // never destroyed
    static const std::string& kInteraction = *new std::string("survey_interacted");  // never destroyed
    static const std::string& kLocation = *new std::string("main_meeting_toolbar");  // never destroyed
    static const std::string& kEmpty = *new std::string();                           // never destroyed
    body->SetEventName(kEventName);
    body->SetSurveyStage(oet::SurveyStageWord(info.survey_stage));
    body->SetEmptyTextC(kEmpty);
    body->SetEmptyTextB(kEmpty);
    body->SetInteraction(kInteraction);
    body->SetLocation(kLocation);
    body->SetSurveyAction(oet::SurveyActionWord(info.survey_action));
    body->SetEmptyTextA(kEmpty);
    event.AttachBody(body);
    return event.Submit(oet::kStandaloneCodes);
  });
}

}  // namespace OrboPTPAAP
