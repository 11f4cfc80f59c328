#include "bench/floors.h"

#include <charconv>
#include <cwchar>

#include "bench/floor_support.h"
#include "core/vocabulary.h"
#include "core/web_domains.h"
#include "platform/system_info.h"
#include "platform/url_utils.h"

namespace oet_floor {
namespace {

using namespace orbo_entity;
using OrboPTPAAP::PTTrackingInfo_s;

// ---- Tab switch.

template <class Texts>
int TabSwitchWith(const PTTrackingInfo_s& tracking, const OrboPTPAAP::PTInteractInfo_s& info) {
  try {
    Event event;
    if (!event.OpenWithWebService()) return 0;
    EntityBase* client = BuildClientEntity<Texts>(event);
    EntityBase* tracking_info = BuildTrackingInfo(event, tracking);
    event.AttachContext({client, tracking_info});
    if (auto* body = event.Create<TabSwitchEntity>()) {
      body->Prepare();
      body->SetAction("switch_tab");
      std::optional<Facts> scratch;
      const Facts& facts = RefreshedFacts(scratch);
      body->SetWebServiceValue(Texts::Text(facts.wide.web_service_value, facts.web_service_value));
      body->SetFirstTab(oet::TabToString(info.first_tab));
      body->SetSecondTab(oet::TabToString(info.second_tab));
      event.AttachBody(body);
    }
    return event.Submit();
  } catch (...) {
    return 0;
  }
}

// ---- Search.

// "<section word>:<count>" per entry, joined by ",".
std::string SectionsText(const std::vector<OrboPTPAAP::SearchSectionEntry_s>& entries) {
  std::string text;
  for (const auto& entry : entries) {
    if (!text.empty()) text += ',';
    text += oet::SearchSectionToString(entry.section);
    char digits[12];
    digits[0] = ':';
    const auto end = std::to_chars(digits + 1, digits + sizeof digits, entry.result_count).ptr;
    text.append(digits, static_cast<size_t>(end - digits));
  }
  return text;
}

void SetSections(SearchDisplayEntity& body, void (SearchDisplayEntity::*clear)(),
                 void (SearchDisplayEntity::*set)(const std::string&),
                 const std::vector<OrboPTPAAP::SearchSectionEntry_s>& entries) {
  if (entries.empty()) {
    (body.*clear)();
  } else {
    (body.*set)(SectionsText(entries));
  }
}

void SetText(SearchDisplayEntity& body, void (SearchDisplayEntity::*clear)(),
             void (SearchDisplayEntity::*set)(const std::string&), const Kst::CStringT<char>& text) {
  if (text.IsEmpty()) {
    (body.*clear)();
  } else {
    (body.*set)(TextOf(text));
  }
}

// ---- Phone.

void SetTime(CallDetailEntity& detail, void (CallDetailEntity::*clear)(),
             void (CallDetailEntity::*set)(const std::string&), const Kst::Time& time) {
  if (time.is_null()) {
    (detail.*clear)();
  } else {
    (detail.*set)(UtcTimestamp(time));
  }
}

// The account's domain label: the stored label, else the part of the web URL between "https://" and
// the web domain suffix that ends it ("dev" for a development URL, "aw1" when there is none).
std::string DomainLabel(ICVWebServiceAPI& web_service) {
  const Kst::CStringT<wchar_t> label = web_service.GetAccountDomain(0);
  if (!label.IsEmpty()) return Utf8(label);
  const Kst::CStringT<wchar_t> url = web_service.GetAccountWebUrl(0, 0);
  IOrboUrlUtils* url_utils = GetOrboUrlUtils();
  if (url_utils != nullptr && url_utils->IsDevelopmentUrl(url) != 0) return "dev";
  const int scheme = url.find(L"https://");
  if (scheme == Kst::CStringT<wchar_t>::npos) return "aw1";
  const int start = scheme + 8;
  const int length = url.GetLength();
  for (const wchar_t* suffix : oet::kWebDomainSuffixes) {
    const int suffix_length = static_cast<int>(std::wcslen(suffix));
    const int end = length - suffix_length;
    if (end < 0 || std::wmemcmp(url.c_str() + end, suffix, static_cast<size_t>(suffix_length)) != 0) continue;
    return start < end ? Utf8(url.c_str() + start, end - start) : "aw1";
  }
  return "aw1";
}

}  // namespace

int TabSwitch(const PTTrackingInfo_s& tracking, const OrboPTPAAP::PTInteractInfo_s& info) {
  return TabSwitchWith<ConvertEachCall>(tracking, info);
}

int TabSwitchCachedUtf8(const PTTrackingInfo_s& tracking, const OrboPTPAAP::PTInteractInfo_s& info) {
  return TabSwitchWith<CachedUtf8>(tracking, info);
}

int SearchDisplay(const PTTrackingInfo_s& tracking, const OrboPTPAAP::SearchInteractInfo_s& info) {
  try {
    Event event;
    if (!event.OpenWithWebService()) return 0;
    EntityBase* client = BuildClientEntity<ConvertEachCall>(event);
    EntityBase* tracking_info = BuildTrackingInfo(event, tracking);
    if (auto* context = event.Create<SearchContextEntity>()) {
      context->SetContextText1(TextOf(info.context_text1));
      context->SetContextText2(TextOf(info.context_text2));
      context->SetContextText3(TextOf(info.context_text3));
      context->SetChatScope(oet::SearchChatScopeToString(info.chat_scope));
      event.AttachContext({client, tracking_info, context});
    } else {
      event.AttachContext({client, tracking_info});
    }
    if (auto* body = event.Create<SearchDisplayEntity>()) {
      body->SetCategory(oet::SearchCategoryToString(info.category));
      body->SetTextA(TextOf(info.text_a));
      body->SetSortOrder(oet::SearchSortOrderToString(info.sort_order));
      body->SetTextB(TextOf(info.text_b));
      body->SetCountA(info.count_a);
      body->SetCountB(info.count_b);
      using E = SearchDisplayEntity;
      SetSections(*body, &E::ClearFirstResults, &E::SetFirstResults, info.first_results);
      SetSections(*body, &E::ClearSecondResults, &E::SetSecondResults, info.second_results);
      SetSections(*body, &E::ClearThirdResults, &E::SetThirdResults, info.third_results);
      SetText(*body, &E::ClearTextD, &E::SetTextD, info.text_d);
      SetText(*body, &E::ClearTextE, &E::SetTextE, info.text_e);
      const bool digit = info.selected_tab >= 0 && info.selected_tab <= 9;
      body->SetSelectedTab(digit ? std::string(1, static_cast<char>('0' + info.selected_tab))
                                 : std::string());
      body->SetSource(oet::SearchSourceToString(info.source));
      body->SetAction(oet::SearchActionToString(info.search_action));
      body->SetFileType(oet::SearchFileTypeToString(info.file_type));
      event.AttachBody(body);
    }
    return event.Submit();
  } catch (...) {
    return 0;
  }
}

int Phone(const PTTrackingInfo_s& tracking, const OrboPTPAAP::PhoneInteractInfo_s& info) {
  try {
    Event event;
    if (!event.OpenWithWebService()) return 0;
    auto* first = event.Create<PhoneContextEntity354>();
    auto* detail = event.Create<CallDetailEntity>();
    if (detail != nullptr) {
      detail->SetCallText2(Utf8(info.call_text2));
      detail->SetCallText1(Utf8(info.call_text1));
      detail->SetDirection(oet::CallDirectionToString(info.direction));
      SetTime(*detail, &CallDetailEntity::ClearTime1, &CallDetailEntity::SetTime1, info.time1);
      SetTime(*detail, &CallDetailEntity::ClearTime2, &CallDetailEntity::SetTime2, info.time2);
    }
    auto* context = event.Create<PhoneContextEntity>();
    if (context != nullptr) {
      context->SetTrackingString2(TextOf(tracking.secondary_value));
      context->SetContextText3(Utf8(info.context_text3));
      context->SetContextNumber(info.context_number);
      context->SetContextText1(Utf8(info.context_text1));
      context->SetContextText4(Utf8(info.context_text4));
      context->SetContextText2(Utf8(info.context_text2));
      context->SetTrackingString1(TextOf(tracking.primary_value));
    }
    auto* product = event.Create<ProductEntity>();
    if (product != nullptr) {
      product->SetClientLabel("client");
      Kst::CStringT<char> version;
      Kst::GetCurrentVersion(version);
      product->SetClientVersion(TextOf(version));
      product->SetWebDomain(DomainLabel(event.web_service()));
    }
    // Entity 354 keeps its place even when null; the others are left out when the host gives none.
    EntityBase* entries[4] = {first};
    size_t count = 1;
    if (context != nullptr) entries[count++] = context;
    if (info.call_detail != 0 && detail != nullptr) entries[count++] = detail;
    if (product != nullptr) entries[count++] = product;
    event.AttachContext(std::vector<EntityBase*>(entries, entries + count));
    if (auto* body = event.Create<PhoneBodyEntity>()) {
      body->SetFirstMarker(1);
      body->SetSecondMarker(1);
      body->SetValueC(info.value_c);
      body->SetValueA(info.value_a);
      body->SetValueD(info.value_d);
      body->SetValueE(info.value_e);
      body->SetValueF(info.value_f);
      if (!info.body_text2.empty()) body->SetText2(info.body_text2);
      if (!info.body_text3.empty()) body->SetText3(info.body_text3);
      body->SetValueB(info.value_b);
      body->SetText1(info.body_text1);
      event.AttachBody(body);
    }
    return event.Submit();
  } catch (...) {
    return 0;
  }
}

int Signin(const PTTrackingInfo_s& /*tracking*/, const OrboPTPAAP::OSigninInteractInfo_s& info) {
  try {
    Event event;
    if (!event.OpenTelemetryOnly()) return 0;
    EntityBase* entries[3];
    size_t count = 0;
    if (auto* first = event.Create<BasicContextEntity170>()) entries[count++] = first;
    if (auto* device = event.Create<BasicDeviceContextEntity>()) {
      std::optional<Facts> scratch;
      const ClientContext& facts = RefreshedFacts(scratch).wide;
      orbo_entity::DeviceInfo& fields = *device;
      fields.SetWebServiceValue(Utf8(facts.web_service_value));
      fields.SetDeviceProduct(Utf8(facts.system_product_name));
      fields.SetOsName(Utf8(facts.os_name));
      fields.SetOsVersion(Utf8(facts.os_version));
      entries[count++] = device;
    }
    if (auto* last = event.Create<BasicContextEntity169>()) entries[count++] = last;
    if (count > 0) event.AttachContext(std::vector<EntityBase*>(entries, entries + count));
    if (auto* body = event.Create<BasicInteractionEntity>()) {
      body->SetSource("client");
      body->SetValueA(info.first_value);
      body->SetValueE(info.fifth_value);
      body->SetValueB(info.second_value);
      body->SetValueC(info.third_value);
      body->SetValueD(info.fourth_value);
      if (info.first_text.IsEmpty()) {
        body->ClearTextA();
      } else {
        body->SetTextA(TextOf(info.first_text));
      }
      if (info.second_text.IsEmpty()) {
        body->ClearTextB();
      } else {
        body->SetTextB(TextOf(info.second_text));
      }
      event.AttachBody(body);
    }
    return event.Submit();
  } catch (...) {
    return 0;
  }
}

int DeviceInfo(OrboPTPAAP::PTClientDeviceEntityStruct& info) {
  try {
    std::optional<Facts> scratch;
    const ClientContext& facts = RefreshedFacts(scratch).wide;
    AssignUtf8(info.web_service_value, facts.web_service_value);
    AssignUtf8(info.device_product, facts.system_product_name);
    AssignUtf8(info.os_name, facts.os_name);
    AssignUtf8(info.os_version, facts.os_version);
  } catch (...) {
  }
  return 1;
}

}  // namespace oet_floor
