#include "bench/floors.h"

#include <charconv>
#include <climits>
#include <cstring>
#include <cwchar>
#include <iterator>
#include <string_view>

#include "bench/floor_support.h"
#include "core/vocabulary.h"
#include "core/web_domains.h"
#include "oKstPlatform/chat_metrics.h"
#include "oKstPlatform/kst_convert.h"
#include "oKstPlatform/kst_number.h"
#include "oKstPlatform/system_info.h"
#include "oKstPlatform/url_utils.h"

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

// ---- Texts of optional fields: an empty text clears the field, any other sets it.

template <class E>
void SetOrClear(E& entity, void (E::*clear)(), void (E::*set)(const std::string&),
                const Kst::CStringT<char>& text) {
  if (text.IsEmpty()) {
    (entity.*clear)();
  } else {
    (entity.*set)(TextOf(text));
  }
}

template <class E>
void SetOrClear(E& entity, void (E::*clear)(), void (E::*set)(const std::string&),
                const Kst::CStringT<wchar_t>& text) {
  if (text.IsEmpty()) {
    (entity.*clear)();
  } else {
    (entity.*set)(Utf8(text));
  }
}

// The chat events' tracking-info entity (130), through its TrackingValues; null when the host gives none.
ChatTrackingInfoEntity* BuildChatTracking(const Event& event, const PTTrackingInfo_s& tracking) {
  auto* entity = event.Create<ChatTrackingInfoEntity>();
  if (entity == nullptr) return nullptr;
  TrackingValues& values = *entity;
  values.SetPrimaryValue(TextOf(tracking.primary_value));
  values.SetSecondaryValue(TextOf(tracking.secondary_value));
  return entity;
}

// ---- Chat.

OncePerSecond g_chat_174;
OncePerSecond g_chat_185;

bool ChatAdmitted(int32_t action_type) {
  if (action_type == 174) return g_chat_174.Admit();
  if (action_type == 185) return g_chat_185.Admit();
  return true;
}

// The actions that send or change a message.
bool CarriesCompose(int32_t action_type) {
  switch (action_type) {
    case 10:
    case 11:
    case 12:
    case 19:
    case 21:
    case 22:
    case 28:
      return true;
    default:
      return false;
  }
}

void FillCompose(ChatComposeEntity& e, const OrboPTPAAP::ChatComposeInfo_s& part) {
  e.SetComposeSource(Utf8(part.compose_source));
  e.SetBold(part.has_bold != 0);
  e.SetItalic(part.has_italic != 0);
  e.SetUnderline(part.has_underline != 0);
  e.SetStrikethrough(part.has_strikethrough != 0);
  e.SetFontSize(part.has_font_size != 0);
  e.SetFontColor(part.has_font_color != 0);
  e.SetHighlight(part.has_highlight != 0);
  e.SetBulletedList(part.has_bulleted_list != 0);
  e.SetNumberedList(part.has_numbered_list != 0);
  e.SetQuote(part.has_quote != 0);
  e.SetCodeBlock(part.has_code_block != 0);
  e.SetInlineCode(part.has_inline_code != 0);
  e.SetLink(part.has_link != 0);
  e.SetMention(part.has_mention != 0);
  e.SetMentionAll(part.has_mention_all != 0);
  e.SetChannelMention(part.has_channel_mention != 0);
  e.SetEmoji(part.has_emoji != 0);
  e.SetSticker(part.has_sticker != 0);
  e.SetGif(part.has_gif != 0);
  e.SetImage(part.has_image != 0);
  e.SetFile(part.has_file != 0);
  e.SetScreenshot(part.has_screenshot != 0);
  e.SetVoiceNote(part.has_voice_note != 0);
  e.SetVideoMessage(part.has_video_message != 0);
  e.SetReply(part.is_reply != 0);
  e.SetThreadReply(part.is_thread_reply != 0);
  e.SetForwarded(part.is_forwarded != 0);
  e.SetEdited(part.is_edited != 0);
  e.SetScheduled(part.is_scheduled != 0);
  e.SetEncrypted(part.is_encrypted != 0);
}

// ---- Performance metrics.

constexpr std::string_view kNoisyMetrics[] = {"webview_error", "network_disconnect", "signoff",
                                              "tp_on_tracking", "tp_on_data_indicate"};
OncePerSecond g_noisy_metrics[std::size(kNoisyMetrics)];

bool MetricsAdmitted(std::string_view name) {
  for (size_t i = 0; i < std::size(kNoisyMetrics); ++i) {
    if (name == kNoisyMetrics[i]) return g_noisy_metrics[i].Admit();
  }
  return true;
}

// The word of the first event member that is set, through the host's word functions.
std::string MetricsEventName(const OrboPTPAAP::OClientPerfMetricsInfo_s& info) {
  if (info.fetch_event != MetricsFetchEvent::kNone) return MetricsFetchEventToString(info.fetch_event);
  if (info.fetch_handler_event != MetricsFetchHandlerEvent::kNone)
    return MetricsFetchHandlerEventToString(info.fetch_handler_event);
  if (info.file_event != MetricsFileEvent::kNone) return MetricsFileEventToString(info.file_event);
  if (info.heartbeat_event != MetricsHeartBeatEvent::kNone)
    return MetricsHeartBeatEventToString(info.heartbeat_event);
  if (info.login_event != MetricsLoginEvent::kNone) return MetricsLoginEventToString(info.login_event);
  if (info.message_event != MetricsMessageEvent::kNone)
    return MetricsMessageEventToString(info.message_event);
  if (info.message_handler_event != MetricsMessageHandlerEvent::kNone)
    return MetricsMessageHandlerEventToString(info.message_handler_event);
  if (info.platform_event != MetricsPlatformEvent::kNone)
    return MetricsPlatformEventToString(info.platform_event);
  if (info.special_event != MetricsSpecialEvent::kNone)
    return MetricsSpecialEventToString(info.special_event);
  return std::string();
}

// ---- Performance reports.

// The device entity (643) filled from the refreshed facts; null when the host gives none.
ApmDeviceEntity* BuildApmDevice(const Event& event) {
  auto* device = event.Create<ApmDeviceEntity>();
  if (device == nullptr) return nullptr;
  std::optional<Facts> scratch;
  const Facts& facts = RefreshedFacts(scratch);
  const ClientContext& wide = facts.wide;
  orbo_entity::DeviceInfo& fields = *device;
  fields.SetWebServiceValue(facts.web_service_value);
  fields.SetDeviceProduct(facts.system_product_name);
  fields.SetOsName(facts.os_name);
  fields.SetOsVersion(facts.os_version);
  if (!wide.cpu_name.IsEmpty()) device->SetCpuName(facts.cpu_name);
  if (!wide.gpu_model.IsEmpty()) device->SetGpuModel(facts.gpu_model);
  if (!wide.resolution.IsEmpty()) device->SetResolution(facts.resolution);
  if (!wide.system_manufacturer.IsEmpty()) device->SetManufacturer(facts.system_manufacturer);
  if (wide.total_ram_gb > 0) device->SetMemorySizeGb(wide.total_ram_gb);
  return device;
}

// Attaches the report's context list, then its header (642) with the category and code as the body,
// and submits; without a header the event is destroyed.
int FinishReport(const Event& event, std::vector<EntityBase*> list, int32_t category, int32_t code) {
  event.AttachContext(std::move(list));
  auto* header = event.Create<ApmReportHeaderEntity>();
  if (header == nullptr) return event.Destroy();
  header->SetReportCategory(category);
  header->SetReportCode(code);
  event.AttachBody(header);
  return event.Submit();
}

// ---- Chat database.

OncePerSecond g_chat_database_165;

// A 64-bit field that 0 clears.
void SetOrClearNumber(ChatDBInteractEntity& body, void (ChatDBInteractEntity::*clear)(),
                      void (ChatDBInteractEntity::*set)(int64_t), int64_t value) {
  if (value == 0) {
    (body.*clear)();
  } else {
    (body.*set)(value);
  }
}

// ---- In-meeting event.

// Asks the entity for its holder of selector -3 and, for tier 3, gives the holder 3.
void Mark(EntityBase* entity, bool mark) {
  AttributeHolder* holder = entity->GetAttributeHolder(-3);
  if (holder != nullptr && mark) holder->SetValue(3);
}

// The kind-detail entity's type id of an interaction kind, or 0.
int32_t KindDetailType(int32_t kind) {
  switch (kind) {
    case 429:
    case 513:
      return MeetingKindEntity302::kTypeId;
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
      return MeetingKindEntity300::kTypeId;
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
      return MeetingKindEntity301::kTypeId;
    default:
      return 0;
  }
}

template <class E>
E* BuildKindDetail(const Event& event, const OrboPAAP::MeetingInteractInfo_s& info) {
  E* entity = event.Create<E>();
  if (entity == nullptr) return nullptr;
  MeetingKindFields& fields = *entity;
  SetOrClear(fields, &MeetingKindFields::ClearKindText, &MeetingKindFields::SetKindText, info.kind_text);
  fields.SetKindValue(info.kind_value);
  return entity;
}

// ---- Settings.

// Settings texts up to this many bytes are read on the stack.
constexpr int kShortSettingText = 64;

bool IsBlank(wchar_t c) {
  return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n' || c == L'\v' || c == L'\f';
}

// What the settings text holds: five codes and the text, as the settings page's reader takes them.
struct SettingRead {
  int32_t codes[5] = {};
  std::string text;
};

// The text turned into wide text through the host's conversion and cut at each "," into at most six
// pieces, each trimmed of blanks: the first five read as the host reads unsigned decimal numbers, the
// sixth converted back to UTF-8.
void ReadSetting(const char* utf8, int bytes, SettingRead& read) {
  wchar_t on_stack[kShortSettingText + 1];
  std::wstring on_heap;
  wchar_t* wide = on_stack;
  if (bytes > kShortSettingText) {
    on_heap.resize(static_cast<size_t>(bytes));
    wide = &on_heap[0];
  }
  const int units = kst_str_convert(KST_CP_UTF8, utf8, bytes, wide, bytes + 1);
  int start = 0;
  for (int piece = 0; piece < 6 && start < units; ++piece) {
    const wchar_t* comma = std::wmemchr(wide + start, L',', static_cast<size_t>(units - start));
    const int end = comma != nullptr ? static_cast<int>(comma - wide) : units;
    int first = start;
    int last = end;
    while (last > first && IsBlank(wide[last - 1]))
      --last;
    while (first < last && IsBlank(wide[first]))
      ++first;
    if (piece < 5) {
      uint32_t value = 0;
      Kst::StringToUInt(Kst::CStringT<wchar_t>(wide + first, last - first), &value, 10);
      read.codes[piece] = static_cast<int32_t>(value);
    } else {
      read.text = Utf8(wide + first, last - first);
    }
    start = comma != nullptr ? end + 1 : units;
  }
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

int Chat(const PTTrackingInfo_s& tracking, const OrboPTPAAP::ChatInteractInfo_s& info) {
  try {
    if (!ChatAdmitted(info.action_type)) return 0;
    Event event;
    if (!event.OpenWithWebService()) return 0;
    std::vector<EntityBase*> list;
    list.reserve(8 + info.items.size());
    if (auto* entity = BuildChatTracking(event, tracking)) list.push_back(entity);
    if (auto* entity = event.Create<ChatMarkerEntity121>()) list.push_back(entity);
    if (auto* entity = event.Create<ChatMarkerEntity128>()) list.push_back(entity);
    if (info.has_conversation != 0) {
      if (auto* e = event.Create<ChatConversationEntity>()) {
        const OrboPTPAAP::ChatConversationInfo_s& part = info.conversation;
        using E = ChatConversationEntity;
        SetOrClear(*e, &E::ClearConversationId, &E::SetConversationId, part.conversation_id);
        e->SetConversationType(part.conversation_type);
        e->SetMemberCount(part.member_count);
        e->SetExternal(part.is_external != 0);
        list.push_back(e);
      }
    }
    if (info.message.sequence != OrboPTPAAP::kChatNoMessage) {
      if (auto* e = event.Create<ChatMessageEntity>()) {
        const OrboPTPAAP::ChatMessageInfo_s& part = info.message;
        SetOrClear(*e, &ChatMessageEntity::ClearMessageId, &ChatMessageEntity::SetMessageId, part.message_id);
        e->SetMessageType(part.message_type);
        e->SetTextLength(part.text_length);
        e->SetAttachmentCount(part.attachment_count);
        e->SetSequence(part.sequence);
        list.push_back(e);
      }
    }
    if (CarriesCompose(info.action_type)) {
      if (auto* e = event.Create<ChatComposeEntity>()) {
        FillCompose(*e, info.compose);
        list.push_back(e);
      }
    }
    if (info.action_type >= 145 && info.action_type <= 153) {
      if (auto* e = event.Create<ChatFileEntity>()) {
        const OrboPTPAAP::ChatFileInfo_s& part = info.files;
        SetOrClear(*e, &ChatFileEntity::ClearFileExtension, &ChatFileEntity::SetFileExtension,
                   part.file_extension);
        e->SetFileSize(part.file_size);
        e->SetFileSource(part.file_source);
        e->SetFileCount(part.file_count);
        list.push_back(e);
      }
    }
    if (info.entry.entry_kind != OrboPTPAAP::kChatNoEntry) {
      if (auto* e = event.Create<ChatEntryEntity>()) {
        e->SetEntryKind(info.entry.entry_kind);
        SetOrClear(*e, &ChatEntryEntity::ClearEntryDetail, &ChatEntryEntity::SetEntryDetail,
                   info.entry.entry_detail);
        e->SetEntryPosition(info.entry.entry_position);
        list.push_back(e);
      }
    }
    for (const OrboPTPAAP::ChatItemInfo_s& item : info.items) {
      if (auto* e = event.Create<ChatItemEntity>()) {
        using E = ChatItemEntity;
        SetOrClear(*e, &E::ClearItemType, &E::SetItemType, item.item_type);
        SetOrClear(*e, &E::ClearItemId, &E::SetItemId, item.item_id);
        SetOrClear(*e, &E::ClearConversationId, &E::SetConversationId, item.conversation_id);
        SetOrClear(*e, &E::ClearFormat, &E::SetFormat, item.format);
        SetOrClear(*e, &E::ClearDetail, &E::SetDetail, item.detail);
        list.push_back(e);
      }
    }
    event.AttachContext(std::move(list));
    if (auto* body = event.Create<ChatBodyEntity>()) {
      body->SetValueE(info.value_e);
      body->SetActionType(info.action_type);
      body->SetValueA(info.value_a);
      body->SetValueD(info.value_d);
      body->SetValueB(info.value_b);
      body->SetText3(Utf8(info.text3));
      body->SetValueF(info.value_f);
      body->SetValueC(info.value_c);
      SetOrClear(*body, &ChatBodyEntity::ClearText1, &ChatBodyEntity::SetText1, info.text1);
      SetOrClear(*body, &ChatBodyEntity::ClearText2, &ChatBodyEntity::SetText2, info.text2);
      if (info.number == 0) {
        body->ClearNumber();
      } else {
        body->SetNumber(info.number);
      }
      event.AttachBody(body);
    }
    return event.Submit();
  } catch (...) {
    return 0;
  }
}

int PerfMetrics(const PTTrackingInfo_s& /*tracking*/, const OrboPTPAAP::OClientPerfMetricsInfo_s& info) {
  try {
    const std::string name = MetricsEventName(info);
    if (!MetricsAdmitted(name)) return 0;
    Event event;
    if (!event.OpenWithWebService()) return 0;
    EntityBase* entries[3];
    size_t count = 0;
    if (auto* entity = event.Create<PerfMetricsContextEntity41>()) entries[count++] = entity;
    if (auto* entity = event.Create<PerfMetricsContextEntity50>()) entries[count++] = entity;
    if (auto* m = event.Create<PerfMeasurementsEntity>()) {
      m->SetTextM2(info.text_m2.str());
      m->SetValueM8(info.value_m8);
      if (info.text_m1.GetLength() > 2) m->SetTextM1(info.text_m1.str());
      if (info.count_m3 != 0) m->SetCountM3(info.count_m3);
      if (info.flag_m4 != 0) m->SetFlagM4(true);
      if (info.value_m5 != 0) m->SetValueM5(info.value_m5);
      if (info.value_m6 != 0) m->SetValueM6(info.value_m6);
      if (info.value_m7 != 0) m->SetValueM7(info.value_m7);
      m->SetFlagM9(info.flag_m9 != 0);
      if (!info.text_m10.IsEmpty()) m->SetTextM10(info.text_m10.str());
      if (info.value_m11 != 0) m->SetValueM11(info.value_m11);
      if (info.value_m12 != 0) m->SetValueM12(info.value_m12);
      if (info.count_m13 != 0) m->SetCountM13(info.count_m13);
      if (info.flag_m14 != 0) m->SetFlagM14(true);
      if (info.count_m15 != 0) m->SetCountM15(info.count_m15);
      if (info.flag_m16 != 0) m->SetFlagM16(true);
      if (info.flag_m17 != 0) m->SetFlagM17(true);
      if (info.flag_m18 != 0) m->SetFlagM18(true);
      if (info.count_m19 != 0) m->SetCountM19(info.count_m19);
      if (info.count_m20 != 0) m->SetCountM20(info.count_m20);
      if (info.text_m21.GetLength() > 2) m->SetTextM21(info.text_m21.str());
      entries[count++] = m;
    }
    event.AttachContext(std::vector<EntityBase*>(entries, entries + count));
    if (auto* body = event.Create<PerfMetricsBodyEntity>()) {
      body->SetEventName(name);
      body->SetBodyValueB1(info.body_value_b1);
      body->SetBodyTextB2(info.body_text_b2.str());
      body->SetBodyValueB3(info.body_value_b3);
      event.AttachBody(body);
    }
    return event.Submit();
  } catch (...) {
    return 0;
  }
}

int MacLaunch(const OrboPTPAAP::OApmMacLaunchInfo_s& info) {
  try {
    Event event;
    if (!event.OpenTelemetryOnly()) return 0;
    auto* device = BuildApmDevice(event);
    if (device == nullptr) return event.Destroy();
    auto* marker = event.Create<ApmReportMarkerEntity>();
    if (marker == nullptr) return event.Destroy();
    auto* body = event.Create<ApmMacLaunchEntity>();
    if (body == nullptr) return event.Destroy();
    if (!info.text1.IsEmpty()) body->SetText1(TextOf(info.text1));
    return FinishReport(event, {device, marker, body}, 1, 3);
  } catch (...) {
    return 0;
  }
}

int MetricKitData(const std::vector<OrboPTPAAP::OApmIOSMetricKitDataInfo_s>& samples) {
  try {
    Event event;
    if (!event.OpenTelemetryOnly()) return 0;
    auto* device = BuildApmDevice(event);
    if (device == nullptr) return event.Destroy();
    auto* marker = event.Create<ApmReportMarkerEntity>();
    if (marker == nullptr) return event.Destroy();
    std::vector<EntityBase*> list;
    list.reserve(2 + samples.size());
    list.push_back(device);
    list.push_back(marker);
    for (const OrboPTPAAP::OApmIOSMetricKitDataInfo_s& sample : samples) {
      auto* entity = event.Create<ApmMetricSampleEntity>();
      if (entity == nullptr) continue;
      entity->SetNumber(sample.number);
      entity->SetValue(sample.value);
      if (!sample.text.IsEmpty()) entity->SetText(TextOf(sample.text));
      list.push_back(entity);
    }
    return FinishReport(event, std::move(list), 5, 10);
  } catch (...) {
    return 0;
  }
}

int ChatDatabase(const PTTrackingInfo_s& tracking, const OrboPTPAAP::ChatDBInteractInfo_s& info) {
  try {
    if (info.interaction_id == 165 && !g_chat_database_165.Admit()) return 0;
    Event event;
    if (!event.OpenWithWebService()) return 0;
    EntityBase* entries[4];
    size_t count = 0;
    if (info.interaction_id == 162) {
      if (auto* entity = BuildChatTracking(event, tracking)) entries[count++] = entity;
    }
    if (auto* entity = event.Create<ChatMarkerEntity121>()) entries[count++] = entity;
    if (auto* entity = event.Create<ChatMarkerEntity128>()) entries[count++] = entity;
    if (auto* body = event.Create<ChatDBInteractEntity>()) {
      using E = ChatDBInteractEntity;
      SetOrClear(*body, &E::ClearField1, &E::SetField1, info.field1);
      body->SetField2(info.field2.IsEmpty() ? std::string("unknown") : Utf8(info.field2));
      SetOrClear(*body, &E::ClearField3, &E::SetField3, info.field3);
      body->SetField4(info.field4 == 0 ? 6 : info.field4);
      SetOrClearNumber(*body, &E::ClearField14, &E::SetField14, info.field14);
      SetOrClearNumber(*body, &E::ClearField15, &E::SetField15, info.field15);
      SetOrClearNumber(*body, &E::ClearField16, &E::SetField16, info.field16);
      SetOrClearNumber(*body, &E::ClearField17, &E::SetField17, info.field17);
      SetOrClearNumber(*body, &E::ClearField5, &E::SetField5, info.field5);
      SetOrClearNumber(*body, &E::ClearField6, &E::SetField6, info.field6);
      SetOrClearNumber(*body, &E::ClearField7, &E::SetField7, info.field7);
      SetOrClearNumber(*body, &E::ClearField8, &E::SetField8, info.field8);
      SetOrClearNumber(*body, &E::ClearField9, &E::SetField9, info.field9);
      SetOrClearNumber(*body, &E::ClearField10, &E::SetField10, info.field10);
      SetOrClearNumber(*body, &E::ClearField11, &E::SetField11, info.field11);
      SetOrClearNumber(*body, &E::ClearField12, &E::SetField12, info.field12);
      SetOrClearNumber(*body, &E::ClearField13, &E::SetField13, info.field13);
      entries[count++] = body;
    }
    event.AttachContext(std::vector<EntityBase*>(entries, entries + count));
    auto* header = event.Create<ChatDBHeaderEntity>();
    if (header == nullptr) return event.Destroy();
    if (info.interaction_id != 0) header->SetInteractionId(info.interaction_id);
    event.AttachBody(header);
    return event.Submit(3, 2);
  } catch (...) {
    return 0;
  }
}

int InMeeting(const OrboPAAP::MeetingTrackingInfo_s& tracking, const OrboPAAP::MeetingInteractInfo_s& info) {
  try {
    Event event;
    if (!event.OpenWithWebService()) return 0;
    if (info.first_code == 0 || info.second_code == 0 || info.third_code == 0 || info.interaction_kind == 0) {
      return event.Destroy();
    }
    {
      std::optional<Facts> scratch;
      if (RefreshedFacts(scratch).wide.os_name.IsEmpty()) return event.Destroy();
    }
    EntityBase* entries[14];
    size_t count = 0;
    const auto add = [&entries, &count](EntityBase* entity) {
      if (entity != nullptr) entries[count++] = entity;
    };
    add(event.Create<TrackingInfoEntity>());
    add(BuildClientEntity<CachedUtf8>(event));
    add(event.Create<MeetingContextEntity297>());
    if (auto* e = event.Create<MeetingParticipantEntity>()) {
      using E = MeetingParticipantEntity;
      SetOrClear(*e, &E::ClearConferenceId, &E::SetConferenceId, tracking.conference_id);
      SetOrClear(*e, &E::ClearParticipantId, &E::SetParticipantId, tracking.participant_id);
      e->SetDomainLabel(DomainLabel(event.web_service()));
      add(e);
    }
    if (auto* e = event.Create<MeetingSessionEntity>()) {
      e->SetMeetingType(tracking.meeting_type);
      SetOrClear(*e, &MeetingSessionEntity::ClearClientSessionId, &MeetingSessionEntity::SetClientSessionId,
                 tracking.client_session_id);
      add(e);
    }
    if (info.reference_a != 0 && info.reference_b != 0 && info.reference_c != 0 &&
        !info.reference_text.IsEmpty()) {
      if (auto* e = event.Create<MeetingReferenceEntity>()) {
        e->SetReferenceText(TextOf(info.reference_text));
        e->SetReferenceA(info.reference_a);
        e->SetReferenceB(info.reference_b);
        e->SetReferenceC(info.reference_c);
        add(e);
      }
    }
    const bool has_meeting_text = !tracking.meeting_text.IsEmpty();
    if (has_meeting_text) {
      if (auto* e = event.Create<MeetingTextEntity>()) {
        e->SetMeetingText(TextOf(tracking.meeting_text));
        e->SetInteractionKind(info.interaction_kind);
        add(e);
      }
    }
    if (tracking.share_number != 0 && !tracking.share_text.IsEmpty()) {
      if (auto* e = event.Create<MeetingShareEntity>()) {
        e->SetShareText(TextOf(tracking.share_text));
        e->SetShareNumber(tracking.share_number);
        add(e);
      }
    }
    if (info.pair_gate_a != 0 && info.pair_gate_b != 0) {
      if (auto* e = event.Create<MeetingPairEntity>()) {
        e->SetPairA(info.pair_gate_a);
        e->SetPairB(info.pair_gate_b);
        add(e);
      }
    }
    if (info.extra_gate != 0) {
      if (auto* e = event.Create<MeetingExtraEntity>()) {
        e->SetExtraValue(info.extra_gate);
        e->SetMeetingType(tracking.meeting_type);
        add(e);
      }
    }
    if (!info.item_text.IsEmpty()) {
      if (auto* e = event.Create<MeetingItemEntity>()) {
        e->SetItemText(TextOf(info.item_text));
        e->SetItemIndex(info.item_index);
        add(e);
      }
    }
    if (info.option_value != 0 && has_meeting_text) {
      if (auto* e = event.Create<MeetingOptionEntity>()) {
        e->SetOptionFlag(info.option_flag != 0);
        e->SetOptionValue(info.option_value);
        add(e);
      }
    }
    switch (KindDetailType(info.interaction_kind)) {
      case MeetingKindEntity302::kTypeId:
        add(BuildKindDetail<MeetingKindEntity302>(event, info));
        break;
      case MeetingKindEntity300::kTypeId:
        add(BuildKindDetail<MeetingKindEntity300>(event, info));
        break;
      case MeetingKindEntity301::kTypeId:
        add(BuildKindDetail<MeetingKindEntity301>(event, info));
        break;
      default:
        break;
    }
    if (info.interaction_kind == 569 && info.kind_569_value != 0) {
      if (auto* e = event.Create<MeetingKind569Entity>()) {
        e->SetKind569Value(info.kind_569_value);
        add(e);
      }
    }
    const bool mark = info.tier == 3;
    for (size_t i = 0; i < count; ++i)
      Mark(entries[i], mark);
    event.AttachContext(std::vector<EntityBase*>(entries, entries + count));

    if (auto* body = event.Create<MeetingBodyEntity>()) {
      Mark(body, mark);
      body->SetMode(info.mode != 0 ? info.mode : tracking.meeting_role == 3 ? 2 : 1);
      body->SetMeetingValue1(info.first_code);
      body->SetMeetingValue2(info.second_code);
      body->SetMeetingValue3(info.third_code);
      body->SetMeetingValue4(info.fourth_code);
      body->SetMeetingValue5(info.interaction_kind);
      body->SetMeetingValue6(info.sixth_code);
      body->SetMeetingValue7(info.seventh_code);
      body->SetMeetingDetail(info.detail);
      if (!info.label.IsEmpty()) body->SetMeetingText(Utf8(info.label));
      body->SetMeetingFlag(info.body_flag != 0);
      if (tracking.body_number != 0) body->SetMeetingNumber(tracking.body_number);
      if (tracking.start_time.is_null()) {
        body->ClearStartTime();
      } else {
        body->SetStartTime(UtcTimestamp(tracking.start_time));
      }
      event.AttachBody(body);
    }
    return event.Submit(4, 1);
  } catch (...) {
    return 0;
  }
}

int Setting(const Kst::CStringT<char>& text, const OrboSettingPAAP::SettingTrackingInfo_s& tracking) {
  try {
    if (text.IsEmpty()) return 0;
    Event event;
    if (!event.OpenWithWebService()) return 0;
    SettingRead read;
    const size_t length = std::strlen(text.c_str());
    if (length <= (INT_MAX - 1) / 4) ReadSetting(text.c_str(), static_cast<int>(length), read);
    const int32_t* codes = read.codes;
    if (codes[0] == 0 || codes[1] == 0 || codes[2] == 0 || codes[4] == 0) return event.Destroy();

    EntityBase* entries[4];
    size_t count = 0;
    if (auto* entity = event.Create<BasicDeviceContextEntity>()) entries[count++] = entity;
    if (auto* entity = event.Create<BasicContextEntity170>()) entries[count++] = entity;
    if (!tracking.tracking_text.IsEmpty() && tracking.tracking_number != 0) {
      if (auto* identity = event.Create<MeetingIdentityEntity>()) {
        MeetingIdentityFields& fields = *identity;
        fields.SetIdentityText(TextOf(tracking.tracking_text));
        fields.SetIdentityNumber(tracking.tracking_number);
        entries[count++] = identity;
      }
    }
    if (auto* entity = event.Create<BasicContextEntity169>()) entries[count++] = entity;
    event.AttachContext(std::vector<EntityBase*>(entries, entries + count));

    if (auto* body = event.Create<BasicInteractionEntity>()) {
      body->SetValueF(3);
      body->SetValueA(codes[0]);
      body->SetValueE(codes[1]);
      body->SetValueC(codes[2]);
      body->SetValueB(codes[3]);
      body->SetValueD(codes[4]);
      if (!read.text.empty()) body->SetTextA(read.text);
      event.AttachBody(body);
    }
    return event.Submit();
  } catch (...) {
    return 0;
  }
}

}  // namespace oet_floor
