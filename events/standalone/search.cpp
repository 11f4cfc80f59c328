// The global search events: one event per step of a search, its body chosen by the step.
#include <string>
#include <utility>
#include <vector>

#include "core/context_entities.h"
#include "core/event.h"
#include "core/vocabulary.h"
#include "oEventTracker/OrboPTPAAP.h"

namespace OrboPTPAAP {
namespace {

using oet::EventDraft;
using oet::Lookup;
using namespace orbo_entity;

std::string ActionWord(const SearchInteractInfo_s& info) {
  return oet::SearchActionWord(info.search_action);
}

// "<section word>:<count>" per entry, joined by ",".
std::string SectionsText(const std::vector<SearchSectionEntry_s>& entries) {
  std::string text;
  for (const SearchSectionEntry_s& entry : entries) {
    if (!text.empty()) text += ',';
    text += oet::SearchSectionWord(entry.section) + ':' + std::to_string(entry.result_count);
  }
  return text;
}

// The selected tab of the result page as one digit; the empty word outside 0..9.
std::string SelectedTabWord(int32_t value) {
  return value >= 0 && value <= 9 ? std::string(1, static_cast<char>('0' + value)) : std::string();
}

SearchContextEntity* BuildSearchContext(const EventDraft& event, const SearchInteractInfo_s& info) {
  auto* context = event.Create<SearchContextEntity>();
  if (context == nullptr) return nullptr;
  context->SetContextText1(oet::TextOf(info.context_text1));
  context->SetContextText2(oet::TextOf(info.context_text2));
  context->SetContextText3(oet::TextOf(info.context_text3));
  context->SetChatScope(oet::SearchChatScopeToString(info.chat_scope));
  return context;
}

SearchInitiateEntity* BuildInitiateBody(const EventDraft& event, const SearchInteractInfo_s& info) {
  auto* body = event.Create<SearchInitiateEntity>();
  if (body == nullptr) return nullptr;
  body->SetEntry(oet::SearchEntryWord(info.entry));
  body->SetAction(ActionWord(info));
  body->SetCountD(info.count_d);
  body->SetCountA(info.count_a);
  body->SetCountB(info.count_b);
  return body;
}

SearchDisplayEntity* BuildDisplayBody(const EventDraft& event, const SearchInteractInfo_s& info) {
  auto* body = event.Create<SearchDisplayEntity>();
  if (body == nullptr) return nullptr;
  body->SetCategory(oet::SearchCategoryWord(info.category));
  body->SetTextA(oet::TextOf(info.text_a));
  body->SetSortOrder(oet::SearchSortOrderWord(info.sort_order));
  body->SetTextB(oet::TextOf(info.text_b));
  body->SetCountA(info.count_a);
  body->SetCountB(info.count_b);
  // No entries give the empty text, which clears the field.
  oet::SetOrClearValue(body, &SearchDisplayEntity::ClearFirstResults, &SearchDisplayEntity::SetFirstResults,
                       SectionsText(info.first_results));
  oet::SetOrClearValue(body, &SearchDisplayEntity::ClearSecondResults, &SearchDisplayEntity::SetSecondResults,
                       SectionsText(info.second_results));
  oet::SetOrClearValue(body, &SearchDisplayEntity::ClearThirdResults, &SearchDisplayEntity::SetThirdResults,
                       SectionsText(info.third_results));
  oet::SetOrClear(body, &SearchDisplayEntity::ClearTextD, &SearchDisplayEntity::SetTextD, info.text_d);
  oet::SetOrClear(body, &SearchDisplayEntity::ClearTextE, &SearchDisplayEntity::SetTextE, info.text_e);
  body->SetSelectedTab(SelectedTabWord(info.selected_tab));
  body->SetSource(oet::SearchSourceWord(info.source));
  body->SetAction(ActionWord(info));
  body->SetFileType(oet::SearchFileTypeWord(info.file_type));
  return body;
}

SearchPerformEntity* BuildPerformBody(const EventDraft& event, const SearchInteractInfo_s& info) {
  auto* body = event.Create<SearchPerformEntity>();
  if (body == nullptr) return nullptr;
  body->SetAction(ActionWord(info));
  body->SetResultAction(oet::SearchResultActionWord(info.result_action));
  body->SetCategory(oet::SearchCategoryWord(info.category));
  body->SetSecondCategory(oet::SearchCategoryWord(info.second_category));
  body->SetCountB(info.count_b);
  body->SetCountA(info.count_a);
  body->SetSource(oet::SearchSourceWord(info.source));
  body->SetTextC(oet::TextOf(info.text_c));
  body->SetCountC(info.count_c);
  return body;
}

SearchLaunchEntity* BuildLaunchBody(const EventDraft& event, const SearchInteractInfo_s& info) {
  auto* body = event.Create<SearchLaunchEntity>();
  if (body == nullptr) return nullptr;
  body->SetAction(ActionWord(info));
  body->SetEntry(oet::SearchEntryWord(info.entry));
  body->SetCountA(info.count_a);
  return body;
}

SearchCloseEntity* BuildCloseBody(const EventDraft& event, const SearchInteractInfo_s& info) {
  auto* body = event.Create<SearchCloseEntity>();
  if (body == nullptr) return nullptr;
  body->SetAction(ActionWord(info));
  body->SetCountA(info.count_a);
  body->SetCountB(info.count_b);
  return body;
}

}  // namespace

int TrackingPTSearchEvent(const PTTrackingInfo_s& tracking, const SearchInteractInfo_s& info) {
  return oet::Guarded([&] {
    auto event = EventDraft::Open(Lookup::kWebServiceAndTelemetry);
    if (!event) return 0;
    oet::ContextList context = event.CommonContext(tracking, 1);
    context.Add(BuildSearchContext(event, info));
    event.AttachContext(std::move(context));
    switch (info.search_action) {
      case 1:
        event.AttachBody(BuildInitiateBody(event, info));
        break;
      case 2:
        event.AttachBody(BuildDisplayBody(event, info));
        break;
      case 3:
        event.AttachBody(BuildPerformBody(event, info));
        break;
      case 4:
        event.AttachBody(BuildLaunchBody(event, info));
        break;
      case 5:
        event.AttachBody(BuildCloseBody(event, info));
        break;
      default:
        break;  // an unknown step still reports, with its context alone
    }
    return event.Submit(oet::kStandaloneCodes);
  });
}

int TrackingPTSearchEventV2(const PTTrackingInfo_s& tracking, const SearchInteractInfoV2_s& info) {
  return oet::Guarded([&] {
    auto event = EventDraft::Open(Lookup::kWebServiceAndTelemetry);
    if (!event) return 0;
    oet::ContextList context(4);
    if (auto* session = event.Create<SearchSessionEntity>()) {
      oet::FillTrackingValues(*session, tracking);
      oet::SetOrClear(session, &SearchSessionEntity::ClearSessionId, &SearchSessionEntity::SetSessionId,
                      info.search_session_id);
      oet::SetOrClear(session, &SearchSessionEntity::ClearQueryId, &SearchSessionEntity::SetQueryId,
                      info.query_id);
      context.Add(session);
    }
    if (auto* filter = event.Create<SearchFilterEntity>()) {
      filter->SetCategory(oet::SearchCategoryWord(info.category));
      filter->SetSource(oet::SearchSourceWord(info.source));
      filter->SetFileType(oet::SearchFileTypeWord(info.file_type));
      filter->SetSortOrder(oet::SearchSortOrderWord(info.sort_order));
      context.Add(filter);
    }
    if (auto* result = event.Create<SearchResultEntity>()) {
      result->SetSection(oet::SearchSectionWord(info.section));
      result->SetResultAction(oet::SearchResultActionWord(info.result_action));
      oet::SetOrClear(result, &SearchResultEntity::ClearResultId, &SearchResultEntity::SetResultId,
                      info.result_id);
      context.Add(result);
    }
    if (auto* metrics = event.Create<SearchMetricsEntity>()) {
      metrics->SetFiltered(info.has_filter != 0);
      metrics->SetRecentSearch(info.is_recent_search != 0);
      metrics->SetSpellCorrected(info.is_spell_corrected != 0);
      metrics->SetResultCount(info.result_count);
      metrics->SetResultPosition(info.result_position);
      metrics->SetElapsedMs(info.elapsed_ms);
      context.Add(metrics);
    }
    event.AttachContext(std::move(context));
    if (auto* body = event.Create<SearchPageEntity>()) {
      body->SetAction(oet::SearchActionWord(info.search_action));
      body->SetEntry(oet::SearchEntryWord(info.entry));
      event.AttachBody(body);
    }
    return event.Submit(oet::kStandaloneCodes);
  });
}

}  // namespace OrboPTPAAP
