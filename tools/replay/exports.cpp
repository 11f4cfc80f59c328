// The one place where the exports a script can call are listed: first the binding of every input
// record (its members, by C++ name), then one registration per export.
//
// Adding an export: bind each record it takes that is not bound yet (a BindingOf specialisation
// listing every member with OET_REPLAY_FIELD, nested records before the records that hold them), then
// add one Export(...) line to the table at the bottom with the export's qualified name and the JSON
// names of its arguments. Nothing else in the tool changes.
#include "tools/replay/exports.h"

#include <algorithm>

#include "oEventTracker/EventTrack.h"
#include "oEventTracker/OrboClipsPAAP.h"
#include "oEventTracker/OrboPAAP.h"
#include "oEventTracker/OrboPTPAAP.h"
#include "oEventTracker/OrboSettingPAAP.h"
#include "oEventTracker/PTJoinMeetingPAAP.h"

namespace oet_replay {

using namespace OrboPTPAAP;

// ---- Records ----

OET_REPLAY_RECORD(PTTrackingInfo_s, OET_REPLAY_FIELD(primary_value), OET_REPLAY_FIELD(secondary_value))

OET_REPLAY_RECORD(PTInteractInfo_s, OET_REPLAY_FIELD(first_tab), OET_REPLAY_FIELD(second_tab))

OET_REPLAY_RECORD(HomeTabInteractInfo_s, OET_REPLAY_FIELD(element), OET_REPLAY_FIELD(interaction_type),
                  OET_REPLAY_FIELD(feature), OET_REPLAY_FIELD(first_flag), OET_REPLAY_FIELD(second_flag),
                  OET_REPLAY_FIELD(third_flag), OET_REPLAY_FIELD(fourth_flag), OET_REPLAY_FIELD(fifth_flag))

OET_REPLAY_RECORD(PostMeetingTrackingInfo_s, OET_REPLAY_FIELD(text1), OET_REPLAY_FIELD(text2),
                  OET_REPLAY_FIELD(text3), OET_REPLAY_FIELD(text4))

OET_REPLAY_RECORD(SearchSectionEntry_s, OET_REPLAY_FIELD(section), OET_REPLAY_FIELD(result_count))

OET_REPLAY_RECORD(SearchInteractInfo_s, OET_REPLAY_FIELD(search_action), OET_REPLAY_FIELD(result_action),
                  OET_REPLAY_FIELD(context_text1), OET_REPLAY_FIELD(context_text2),
                  OET_REPLAY_FIELD(context_text3), OET_REPLAY_FIELD(count_a), OET_REPLAY_FIELD(count_b),
                  OET_REPLAY_FIELD(chat_scope), OET_REPLAY_FIELD(entry), OET_REPLAY_FIELD(category),
                  OET_REPLAY_FIELD(second_category), OET_REPLAY_FIELD(first_results),
                  OET_REPLAY_FIELD(second_results), OET_REPLAY_FIELD(third_results), OET_REPLAY_FIELD(text_d),
                  OET_REPLAY_FIELD(text_e), OET_REPLAY_FIELD(selected_tab), OET_REPLAY_FIELD(source),
                  OET_REPLAY_FIELD(sort_order), OET_REPLAY_FIELD(file_type), OET_REPLAY_FIELD(text_a),
                  OET_REPLAY_FIELD(text_b), OET_REPLAY_FIELD(text_c), OET_REPLAY_FIELD(count_c),
                  OET_REPLAY_FIELD(count_d))

OET_REPLAY_RECORD(SearchInteractInfoV2_s, OET_REPLAY_FIELD(search_action), OET_REPLAY_FIELD(entry),
                  OET_REPLAY_FIELD(category), OET_REPLAY_FIELD(section), OET_REPLAY_FIELD(result_action),
                  OET_REPLAY_FIELD(source), OET_REPLAY_FIELD(sort_order), OET_REPLAY_FIELD(file_type),
                  OET_REPLAY_FIELD(search_session_id), OET_REPLAY_FIELD(query_id),
                  OET_REPLAY_FIELD(result_id), OET_REPLAY_FIELD(has_filter),
                  OET_REPLAY_FIELD(is_recent_search), OET_REPLAY_FIELD(is_spell_corrected),
                  OET_REPLAY_FIELD(result_count), OET_REPLAY_FIELD(result_position),
                  OET_REPLAY_FIELD(elapsed_ms))

OET_REPLAY_RECORD(PTClientProductEntityStruct, OET_REPLAY_FIELD(domain), OET_REPLAY_FIELD(client_label),
                  OET_REPLAY_FIELD(client_version))

OET_REPLAY_RECORD(PTClientDeviceEntityStruct, OET_REPLAY_FIELD(device_product),
                  OET_REPLAY_FIELD(web_service_value), OET_REPLAY_FIELD(os_version),
                  OET_REPLAY_FIELD(os_name))

OET_REPLAY_RECORD(OSigninInteractInfo_s, OET_REPLAY_FIELD(first_value), OET_REPLAY_FIELD(second_value),
                  OET_REPLAY_FIELD(third_value), OET_REPLAY_FIELD(fourth_value),
                  OET_REPLAY_FIELD(fifth_value), OET_REPLAY_FIELD(first_text), OET_REPLAY_FIELD(second_text))

OET_REPLAY_RECORD(OBasicInteractInfo_s, OET_REPLAY_FIELD(first_value), OET_REPLAY_FIELD(second_value),
                  OET_REPLAY_FIELD(third_value), OET_REPLAY_FIELD(fourth_value),
                  OET_REPLAY_FIELD(fifth_value), OET_REPLAY_FIELD(sixth_value), OET_REPLAY_FIELD(first_text),
                  OET_REPLAY_FIELD(second_text))

OET_REPLAY_RECORD(PhoneInteractInfo_s, OET_REPLAY_FIELD(spare_value), OET_REPLAY_FIELD(value_a),
                  OET_REPLAY_FIELD(value_b), OET_REPLAY_FIELD(value_c), OET_REPLAY_FIELD(value_d),
                  OET_REPLAY_FIELD(value_e), OET_REPLAY_FIELD(value_f), OET_REPLAY_FIELD(body_text1),
                  OET_REPLAY_FIELD(body_text2), OET_REPLAY_FIELD(body_text3), OET_REPLAY_FIELD(spare_value2),
                  OET_REPLAY_FIELD(call_detail), OET_REPLAY_FIELD(call_text1), OET_REPLAY_FIELD(call_text2),
                  OET_REPLAY_FIELD(direction), OET_REPLAY_FIELD(time1), OET_REPLAY_FIELD(time2),
                  OET_REPLAY_FIELD(context_text1), OET_REPLAY_FIELD(context_text2),
                  OET_REPLAY_FIELD(context_text3), OET_REPLAY_FIELD(context_number),
                  OET_REPLAY_FIELD(context_text4))

OET_REPLAY_EMPTY_RECORD(ORPhoneTrackingInfo_s)
OET_REPLAY_EMPTY_RECORD(ORPhoneInteractInfo_s)

// ---- Records of the standalone events (chat, meeting, post-meeting, client, metrics, notice, preferences).

OET_REPLAY_RECORD(ChatConversationInfo_s, OET_REPLAY_FIELD(conversation_id),
                  OET_REPLAY_FIELD(conversation_type), OET_REPLAY_FIELD(member_count),
                  OET_REPLAY_FIELD(is_external))

OET_REPLAY_RECORD(ChatMessageInfo_s, OET_REPLAY_FIELD(message_id), OET_REPLAY_FIELD(message_type),
                  OET_REPLAY_FIELD(text_length), OET_REPLAY_FIELD(attachment_count),
                  OET_REPLAY_FIELD(sequence))

OET_REPLAY_RECORD(
    ChatComposeInfo_s, OET_REPLAY_FIELD(compose_source), OET_REPLAY_FIELD(has_bold),
    OET_REPLAY_FIELD(has_italic), OET_REPLAY_FIELD(has_underline), OET_REPLAY_FIELD(has_strikethrough),
    OET_REPLAY_FIELD(has_font_size), OET_REPLAY_FIELD(has_font_color), OET_REPLAY_FIELD(has_highlight),
    OET_REPLAY_FIELD(has_bulleted_list), OET_REPLAY_FIELD(has_numbered_list), OET_REPLAY_FIELD(has_quote),
    OET_REPLAY_FIELD(has_code_block), OET_REPLAY_FIELD(has_inline_code), OET_REPLAY_FIELD(has_link),
    OET_REPLAY_FIELD(has_mention), OET_REPLAY_FIELD(has_mention_all), OET_REPLAY_FIELD(has_channel_mention),
    OET_REPLAY_FIELD(has_emoji), OET_REPLAY_FIELD(has_sticker), OET_REPLAY_FIELD(has_gif),
    OET_REPLAY_FIELD(has_image), OET_REPLAY_FIELD(has_file), OET_REPLAY_FIELD(has_screenshot),
    OET_REPLAY_FIELD(has_voice_note), OET_REPLAY_FIELD(has_video_message), OET_REPLAY_FIELD(is_reply),
    OET_REPLAY_FIELD(is_thread_reply), OET_REPLAY_FIELD(is_forwarded), OET_REPLAY_FIELD(is_edited),
    OET_REPLAY_FIELD(is_scheduled), OET_REPLAY_FIELD(is_encrypted))

OET_REPLAY_RECORD(ChatFileInfo_s, OET_REPLAY_FIELD(file_extension), OET_REPLAY_FIELD(file_size),
                  OET_REPLAY_FIELD(file_source), OET_REPLAY_FIELD(file_count))

OET_REPLAY_RECORD(ChatEntryInfo_s, OET_REPLAY_FIELD(entry_kind), OET_REPLAY_FIELD(entry_detail),
                  OET_REPLAY_FIELD(entry_position))

OET_REPLAY_RECORD(ChatItemInfo_s, OET_REPLAY_FIELD(item_type), OET_REPLAY_FIELD(item_id),
                  OET_REPLAY_FIELD(conversation_id), OET_REPLAY_FIELD(format), OET_REPLAY_FIELD(detail))

OET_REPLAY_RECORD(ChatInteractInfo_s, OET_REPLAY_FIELD(action_type), OET_REPLAY_FIELD(value_a),
                  OET_REPLAY_FIELD(value_b), OET_REPLAY_FIELD(value_c), OET_REPLAY_FIELD(value_d),
                  OET_REPLAY_FIELD(value_e), OET_REPLAY_FIELD(value_f), OET_REPLAY_FIELD(text1),
                  OET_REPLAY_FIELD(text2), OET_REPLAY_FIELD(text3), OET_REPLAY_FIELD(number),
                  OET_REPLAY_FIELD(conversation), OET_REPLAY_FIELD(has_conversation),
                  OET_REPLAY_FIELD(message), OET_REPLAY_FIELD(compose), OET_REPLAY_FIELD(files),
                  OET_REPLAY_FIELD(entry), OET_REPLAY_FIELD(items))

OET_REPLAY_RECORD(MeetingInteractInfo_s, OET_REPLAY_FIELD(meeting_value1), OET_REPLAY_FIELD(meeting_value2),
                  OET_REPLAY_FIELD(meeting_value3), OET_REPLAY_FIELD(meeting_value4),
                  OET_REPLAY_FIELD(meeting_value5), OET_REPLAY_FIELD(meeting_text),
                  OET_REPLAY_FIELD(spare_number), OET_REPLAY_FIELD(meeting_detail))

OET_REPLAY_RECORD(PostMeetingInteractInfo_s, OET_REPLAY_FIELD(survey_stage), OET_REPLAY_FIELD(survey_action))

OET_REPLAY_RECORD(OClientInteractInfo_s, OET_REPLAY_FIELD(first_value), OET_REPLAY_FIELD(second_value),
                  OET_REPLAY_FIELD(third_value), OET_REPLAY_FIELD(action_code), OET_REPLAY_FIELD(fifth_value),
                  OET_REPLAY_FIELD(sixth_value), OET_REPLAY_FIELD(first_text), OET_REPLAY_FIELD(spare_number),
                  OET_REPLAY_FIELD(detail), OET_REPLAY_FIELD(product_info), OET_REPLAY_FIELD(product_id))

OET_REPLAY_RECORD(OClientPerfMetricsInfo_s, OET_REPLAY_FIELD(login_event), OET_REPLAY_FIELD(fetch_event),
                  OET_REPLAY_FIELD(fetch_handler_event), OET_REPLAY_FIELD(heartbeat_event),
                  OET_REPLAY_FIELD(message_event), OET_REPLAY_FIELD(message_handler_event),
                  OET_REPLAY_FIELD(platform_event), OET_REPLAY_FIELD(file_event),
                  OET_REPLAY_FIELD(special_event), OET_REPLAY_FIELD(spare_value), OET_REPLAY_FIELD(text_m1),
                  OET_REPLAY_FIELD(text_m2), OET_REPLAY_FIELD(count_m3), OET_REPLAY_FIELD(flag_m4),
                  OET_REPLAY_FIELD(value_m5), OET_REPLAY_FIELD(value_m6), OET_REPLAY_FIELD(value_m7),
                  OET_REPLAY_FIELD(value_m8), OET_REPLAY_FIELD(flag_m9), OET_REPLAY_FIELD(text_m10),
                  OET_REPLAY_FIELD(value_m11), OET_REPLAY_FIELD(value_m12), OET_REPLAY_FIELD(count_m13),
                  OET_REPLAY_FIELD(flag_m14), OET_REPLAY_FIELD(count_m15), OET_REPLAY_FIELD(flag_m16),
                  OET_REPLAY_FIELD(flag_m17), OET_REPLAY_FIELD(flag_m18), OET_REPLAY_FIELD(count_m19),
                  OET_REPLAY_FIELD(count_m20), OET_REPLAY_FIELD(text_m21), OET_REPLAY_FIELD(spare_number),
                  OET_REPLAY_FIELD(body_value_b1), OET_REPLAY_FIELD(body_text_b2),
                  OET_REPLAY_FIELD(body_value_b3))

OET_REPLAY_RECORD(ONoticeInteractInfo_s, OET_REPLAY_FIELD(first_value), OET_REPLAY_FIELD(second_value),
                  OET_REPLAY_FIELD(third_value), OET_REPLAY_FIELD(fourth_value),
                  OET_REPLAY_FIELD(fifth_value), OET_REPLAY_FIELD(sixth_value), OET_REPLAY_FIELD(action_code),
                  OET_REPLAY_FIELD(first_text), OET_REPLAY_FIELD(spare_number),
                  OET_REPLAY_FIELD(notice_text1), OET_REPLAY_FIELD(notice_text2),
                  OET_REPLAY_FIELD(notice_text3), OET_REPLAY_FIELD(notice_number),
                  OET_REPLAY_FIELD(notice_flag))

OET_REPLAY_RECORD(OPreferencesInteractInfo_s, OET_REPLAY_FIELD(first_value), OET_REPLAY_FIELD(second_value),
                  OET_REPLAY_FIELD(third_value), OET_REPLAY_FIELD(fourth_value),
                  OET_REPLAY_FIELD(fifth_value), OET_REPLAY_FIELD(sixth_value), OET_REPLAY_FIELD(first_text),
                  OET_REPLAY_FIELD(second_text), OET_REPLAY_FIELD(preference_text1),
                  OET_REPLAY_FIELD(preference_text2), OET_REPLAY_FIELD(preference_text3),
                  OET_REPLAY_FIELD(preference_text4), OET_REPLAY_FIELD(preference_text5),
                  OET_REPLAY_FIELD(preference_text6))

// ---- Records of the performance reports and chat-module events.

// The not_read_* members of the chat-module records are the chat module's own data, which the library
// never reads; scripts do not give them.
OET_REPLAY_RECORD(OApmIOSLaunchInfo_s, OET_REPLAY_FIELD(text1), OET_REPLAY_FIELD(text2),
                  OET_REPLAY_FIELD(text3), OET_REPLAY_FIELD(text4), OET_REPLAY_FIELD(text5),
                  OET_REPLAY_FIELD(text6), OET_REPLAY_FIELD(text7), OET_REPLAY_FIELD(text8))

OET_REPLAY_RECORD(OApmMacLaunchInfo_s, OET_REPLAY_FIELD(text1))

OET_REPLAY_RECORD(OApmMacRuntimeInfo_s, OET_REPLAY_FIELD(text1), OET_REPLAY_FIELD(text2))

OET_REPLAY_RECORD(OApmMacFreezeInfo_s, OET_REPLAY_FIELD(text1))

OET_REPLAY_RECORD(OApmAndroidLaunchInfo_s, OET_REPLAY_FIELD(text1), OET_REPLAY_FIELD(text2),
                  OET_REPLAY_FIELD(text3), OET_REPLAY_FIELD(text4), OET_REPLAY_FIELD(text5),
                  OET_REPLAY_FIELD(text6))

OET_REPLAY_RECORD(OApmAndroidPageInfo_s, OET_REPLAY_FIELD(text1), OET_REPLAY_FIELD(text2),
                  OET_REPLAY_FIELD(text3), OET_REPLAY_FIELD(text4), OET_REPLAY_FIELD(text5),
                  OET_REPLAY_FIELD(text6), OET_REPLAY_FIELD(text7), OET_REPLAY_FIELD(text8),
                  OET_REPLAY_FIELD(text9), OET_REPLAY_FIELD(text10), OET_REPLAY_FIELD(text11),
                  OET_REPLAY_FIELD(text12), OET_REPLAY_FIELD(text13), OET_REPLAY_FIELD(text14),
                  OET_REPLAY_FIELD(text15), OET_REPLAY_FIELD(text16), OET_REPLAY_FIELD(text17),
                  OET_REPLAY_FIELD(text18), OET_REPLAY_FIELD(text19))

OET_REPLAY_RECORD(OApmIOSMetricKitInfo_s, OET_REPLAY_FIELD(text1), OET_REPLAY_FIELD(text2),
                  OET_REPLAY_FIELD(text3), OET_REPLAY_FIELD(text4), OET_REPLAY_FIELD(text5),
                  OET_REPLAY_FIELD(text6), OET_REPLAY_FIELD(text7), OET_REPLAY_FIELD(text8),
                  OET_REPLAY_FIELD(text9))

OET_REPLAY_RECORD(OApmIOSMetricKitDataInfo_s, OET_REPLAY_FIELD(number), OET_REPLAY_FIELD(text),
                  OET_REPLAY_FIELD(value))

OET_REPLAY_RECORD(OApmClientCrashInfo_s, OET_REPLAY_FIELD(crash_code), OET_REPLAY_FIELD(text1),
                  OET_REPLAY_FIELD(text2), OET_REPLAY_FIELD(text3), OET_REPLAY_FIELD(text4))

OET_REPLAY_RECORD(ChatMessageModuleInfo_s, OET_REPLAY_FIELD(field1), OET_REPLAY_FIELD(field2),
                  OET_REPLAY_FIELD(field3), OET_REPLAY_FIELD(field4), OET_REPLAY_FIELD(field5),
                  OET_REPLAY_FIELD(field6), OET_REPLAY_FIELD(field7), OET_REPLAY_FIELD(field8),
                  OET_REPLAY_FIELD(field9), OET_REPLAY_FIELD(field10), OET_REPLAY_FIELD(field11),
                  OET_REPLAY_FIELD(field12), OET_REPLAY_FIELD(field13), OET_REPLAY_FIELD(field14),
                  OET_REPLAY_FIELD(field15), OET_REPLAY_FIELD(field16), OET_REPLAY_FIELD(field17),
                  OET_REPLAY_FIELD(field18), OET_REPLAY_FIELD(with_body))

OET_REPLAY_RECORD(WebServiceInfo_s, OET_REPLAY_FIELD(field1), OET_REPLAY_FIELD(field2),
                  OET_REPLAY_FIELD(field3), OET_REPLAY_FIELD(field4), OET_REPLAY_FIELD(field5),
                  OET_REPLAY_FIELD(field6), OET_REPLAY_FIELD(field7), OET_REPLAY_FIELD(field8),
                  OET_REPLAY_FIELD(field9), OET_REPLAY_FIELD(field10), OET_REPLAY_FIELD(with_body))

OET_REPLAY_RECORD(ChatDBInteractInfo_s, OET_REPLAY_FIELD(field1), OET_REPLAY_FIELD(field2),
                  OET_REPLAY_FIELD(field3), OET_REPLAY_FIELD(field4), OET_REPLAY_FIELD(field5),
                  OET_REPLAY_FIELD(field6), OET_REPLAY_FIELD(field7), OET_REPLAY_FIELD(field8),
                  OET_REPLAY_FIELD(field9), OET_REPLAY_FIELD(field10), OET_REPLAY_FIELD(field11),
                  OET_REPLAY_FIELD(field12), OET_REPLAY_FIELD(field13), OET_REPLAY_FIELD(field14),
                  OET_REPLAY_FIELD(field15), OET_REPLAY_FIELD(field16), OET_REPLAY_FIELD(field17),
                  OET_REPLAY_FIELD(interaction_id))

OET_REPLAY_RECORD(ChatFileTransferInteractInfo_s, OET_REPLAY_FIELD(field1), OET_REPLAY_FIELD(field2),
                  OET_REPLAY_FIELD(field3), OET_REPLAY_FIELD(field4), OET_REPLAY_FIELD(field5),
                  OET_REPLAY_FIELD(field6), OET_REPLAY_FIELD(field7), OET_REPLAY_FIELD(field8),
                  OET_REPLAY_FIELD(field9), OET_REPLAY_FIELD(field10), OET_REPLAY_FIELD(field11),
                  OET_REPLAY_FIELD(field12), OET_REPLAY_FIELD(field13), OET_REPLAY_FIELD(field14),
                  OET_REPLAY_FIELD(field15), OET_REPLAY_FIELD(field16), OET_REPLAY_FIELD(field17),
                  OET_REPLAY_FIELD(field18), OET_REPLAY_FIELD(field19), OET_REPLAY_FIELD(field20),
                  OET_REPLAY_FIELD(field21), OET_REPLAY_FIELD(field22), OET_REPLAY_FIELD(field23),
                  OET_REPLAY_FIELD(field24), OET_REPLAY_FIELD(field25), OET_REPLAY_FIELD(field26),
                  OET_REPLAY_FIELD(field27), OET_REPLAY_FIELD(field28), OET_REPLAY_FIELD(field29),
                  OET_REPLAY_FIELD(field30), OET_REPLAY_FIELD(field31), OET_REPLAY_FIELD(field32),
                  OET_REPLAY_FIELD(field33), OET_REPLAY_FIELD(field34), OET_REPLAY_FIELD(field35),
                  OET_REPLAY_FIELD(field36), OET_REPLAY_FIELD(field37), OET_REPLAY_FIELD(field38),
                  OET_REPLAY_FIELD(field39), OET_REPLAY_FIELD(field40), OET_REPLAY_FIELD(field41),
                  OET_REPLAY_FIELD(interaction_id))

OET_REPLAY_RECORD(ChatE2EDecodeInfo_s, OET_REPLAY_FIELD(field1), OET_REPLAY_FIELD(field2),
                  OET_REPLAY_FIELD(field3), OET_REPLAY_FIELD(field4), OET_REPLAY_FIELD(field5),
                  OET_REPLAY_FIELD(field6), OET_REPLAY_FIELD(field7), OET_REPLAY_FIELD(field8),
                  OET_REPLAY_FIELD(field9), OET_REPLAY_FIELD(field10), OET_REPLAY_FIELD(interaction_id))

// ---- Records of the meeting side.

OET_REPLAY_RECORD(PTOUIInteractInfo_s, OET_REPLAY_FIELD(value1), OET_REPLAY_FIELD(value2),
                  OET_REPLAY_FIELD(value3), OET_REPLAY_FIELD(value4), OET_REPLAY_FIELD(value5),
                  OET_REPLAY_FIELD(value6))

OET_REPLAY_RECORD(PTJoinMeetingPAAP::PTJoinMeetingInteractInfo_s, OET_REPLAY_FIELD(interaction_type),
                  OET_REPLAY_FIELD(join_screen_action), OET_REPLAY_FIELD(first_flag),
                  OET_REPLAY_FIELD(second_flag))

OET_REPLAY_RECORD(PTJoinMeetingPAAP::PTJoinMeetingTrackingInfo_s, OET_REPLAY_FIELD(primary_value),
                  OET_REPLAY_FIELD(secondary_value))

OET_REPLAY_RECORD(OrboSettingPAAP::SettingInteractInfo_s, OET_REPLAY_FIELD(first_code),
                  OET_REPLAY_FIELD(second_code), OET_REPLAY_FIELD(third_code), OET_REPLAY_FIELD(fourth_code),
                  OET_REPLAY_FIELD(fifth_code), OET_REPLAY_FIELD(text))

OET_REPLAY_RECORD(OrboSettingPAAP::SettingTrackingInfo_s, OET_REPLAY_FIELD(tracking_text),
                  OET_REPLAY_FIELD(tracking_number))

OET_REPLAY_RECORD(OrboClipsPAAP::ClipsRecordInteractInfo_s, OET_REPLAY_FIELD(first_code),
                  OET_REPLAY_FIELD(second_code), OET_REPLAY_FIELD(third_code), OET_REPLAY_FIELD(fourth_code),
                  OET_REPLAY_FIELD(fifth_code), OET_REPLAY_FIELD(detail))

OET_REPLAY_RECORD(OrboClipsPAAP::ClipsRecordConfigInfo_s, OET_REPLAY_FIELD(setting_text1),
                  OET_REPLAY_FIELD(setting_value_a), OET_REPLAY_FIELD(setting_value_b),
                  OET_REPLAY_FIELD(setting_value_c), OET_REPLAY_FIELD(setting_text2),
                  OET_REPLAY_FIELD(setting_value_d), OET_REPLAY_FIELD(setting_value_e),
                  OET_REPLAY_FIELD(setting_value_f), OET_REPLAY_FIELD(setting_text3),
                  OET_REPLAY_FIELD(setting_text4), OET_REPLAY_FIELD(setting_value_g),
                  OET_REPLAY_FIELD(setting_value_h), OET_REPLAY_FIELD(setting_value_i),
                  OET_REPLAY_FIELD(setting_value_j))

OET_REPLAY_RECORD(OrboClipsPAAP::PAAPUserEntityInfo_s, OET_REPLAY_FIELD(user_id),
                  OET_REPLAY_FIELD(account_id))

OET_REPLAY_RECORD(OrboPAAP::MeetingTrackingInfo_s, OET_REPLAY_FIELD(meeting_id),
                  OET_REPLAY_FIELD(meeting_number), OET_REPLAY_FIELD(conference_id),
                  OET_REPLAY_FIELD(participant_id), OET_REPLAY_FIELD(meeting_type),
                  OET_REPLAY_FIELD(client_session_id), OET_REPLAY_FIELD(meeting_role),
                  OET_REPLAY_FIELD(meeting_text), OET_REPLAY_FIELD(share_text),
                  OET_REPLAY_FIELD(share_number), OET_REPLAY_FIELD(body_number), OET_REPLAY_FIELD(start_time))

OET_REPLAY_RECORD(OrboPAAP::MeetingInteractInfo_s, OET_REPLAY_FIELD(first_code),
                  OET_REPLAY_FIELD(second_code), OET_REPLAY_FIELD(third_code), OET_REPLAY_FIELD(fourth_code),
                  OET_REPLAY_FIELD(interaction_kind), OET_REPLAY_FIELD(sixth_code),
                  OET_REPLAY_FIELD(seventh_code), OET_REPLAY_FIELD(label), OET_REPLAY_FIELD(detail),
                  OET_REPLAY_FIELD(pair_gate_a), OET_REPLAY_FIELD(pair_gate_b),
                  OET_REPLAY_FIELD(reference_text), OET_REPLAY_FIELD(reference_a),
                  OET_REPLAY_FIELD(reference_b), OET_REPLAY_FIELD(reference_c), OET_REPLAY_FIELD(extra_gate),
                  OET_REPLAY_FIELD(item_text), OET_REPLAY_FIELD(item_index), OET_REPLAY_FIELD(option_flag),
                  OET_REPLAY_FIELD(option_value), OET_REPLAY_FIELD(kind_569_value),
                  OET_REPLAY_FIELD(body_flag), OET_REPLAY_FIELD(tier), OET_REPLAY_FIELD(mode),
                  OET_REPLAY_FIELD(kind_text), OET_REPLAY_FIELD(kind_value))

OET_REPLAY_RECORD(OrboPAAP::MTOUIInteractInfo_s, OET_REPLAY_FIELD(value1), OET_REPLAY_FIELD(value2),
                  OET_REPLAY_FIELD(value3), OET_REPLAY_FIELD(value4), OET_REPLAY_FIELD(value5),
                  OET_REPLAY_FIELD(value6))

OET_REPLAY_RECORD(OrboPAAP::ONoticeInteractInfo_s, OET_REPLAY_FIELD(notice_value1),
                  OET_REPLAY_FIELD(notice_value2), OET_REPLAY_FIELD(notice_value3),
                  OET_REPLAY_FIELD(notice_value4), OET_REPLAY_FIELD(notice_value5),
                  OET_REPLAY_FIELD(notice_value6), OET_REPLAY_FIELD(notice_text),
                  OET_REPLAY_FIELD(notice_text2), OET_REPLAY_FIELD(notice_text3),
                  OET_REPLAY_FIELD(notice_text4), OET_REPLAY_FIELD(notice_number))

OET_REPLAY_RECORD(OrboPAAP::OClientInteractInfo_s, OET_REPLAY_FIELD(client_value1),
                  OET_REPLAY_FIELD(client_value2), OET_REPLAY_FIELD(client_value3),
                  OET_REPLAY_FIELD(client_value4), OET_REPLAY_FIELD(client_value5),
                  OET_REPLAY_FIELD(client_value6), OET_REPLAY_FIELD(client_text),
                  OET_REPLAY_FIELD(client_source), OET_REPLAY_FIELD(client_detail),
                  OET_REPLAY_FIELD(product_identifier))

// Exports whose arguments are not records (the encoded texts, the join-meeting reader's words, the
// legacy codes and tag map) are called through small adapters that take these records instead.
namespace meeting_side {

// An encoded join-meeting or settings text, as the text exports take and give it.
struct EncodedText {
  Kst::CStringT<char> text;
};

// The join-meeting reader's four outputs.
struct JoinMeetingWords {
  Kst::CStringT<char> interaction_word;
  Kst::CStringT<char> action_word;
  int32_t first_flag = 0;
  int32_t second_flag = 0;
};

// The legacy functions' arguments: four texts, four codes, and a tag map with its priority. A tag map
// is a list of {name, text} (a later entry with the same name replaces an earlier one); it is written
// back after the call in the map's order.
struct LegacyTexts {
  Kst::CStringT<char> first;
  Kst::CStringT<char> second;
  Kst::CStringT<char> third;
  Kst::CStringT<char> fourth;
};
struct LegacyCodes {
  ns_orbo_telemetry::OrboLogClientType client_type{};
  ns_orbo_telemetry::OrboLogLocation location{};
  ns_orbo_telemetry::OrboLogEvent event{};
  ns_orbo_telemetry::OrboLogSubEvent sub_event{};
};
struct LegacyTag {
  ns_orbo_telemetry::OrboLogTagName name{};
  Kst::CStringT<char> text;
};
struct LegacyTags {
  std::vector<LegacyTag> tags;
  ns_orbo_telemetry::LogPriority priority{};
};

void FormatJoinMeeting(const PTJoinMeetingPAAP::PTJoinMeetingInteractInfo_s& info, EncodedText& encoded) {
  encoded.text = PTJoinMeetingPAAP::FormatJoinMeetingInteractInfoAsString(info);
}
void ParseJoinMeeting(JoinMeetingWords& words, const EncodedText& encoded) {
  PTJoinMeetingPAAP::ParseJoinMeetingInterfactInfoFromString(
      words.interaction_word, words.action_word, words.first_flag, words.second_flag, encoded.text);
}
int TrackJoinMeeting(const EncodedText& encoded,
                     const PTJoinMeetingPAAP::PTJoinMeetingTrackingInfo_s& tracking) {
  return PTJoinMeetingPAAP::TrackingPTJoinMeetingInteractEvent(encoded.text, tracking);
}
void FormatSetting(const OrboSettingPAAP::SettingInteractInfo_s& info, EncodedText& encoded) {
  encoded.text = OrboSettingPAAP::FormatSettingInteractInfoAsString(info);
}
void ParseSetting(OrboSettingPAAP::SettingInteractInfo_s& info, const EncodedText& encoded) {
  OrboSettingPAAP::ParseSettingInterfactInfoFromString(info, encoded.text);
}
int TrackSetting(const EncodedText& encoded, const OrboSettingPAAP::SettingTrackingInfo_s& tracking) {
  return OrboSettingPAAP::TrackingSettingInteractEvent(encoded.text, tracking);
}

// Runs `call` with the tags as a tag map, then writes the map back.
// Building and reading back the map is the tool's work, not the export's.
template <class Call>
int WithTagMap(LegacyTags& tags, Call call) {
  ns_orbo_telemetry::OrboLogTagMap map;
  {
    detail::OutsideExport tool_work;
    for (const LegacyTag& tag : tags.tags)
      map[tag.name] = tag.text;
  }
  const int result = call(map);
  detail::OutsideExport tool_work;
  tags.tags.clear();
  for (const auto& [name, text] : map)
    tags.tags.push_back(LegacyTag{name, text});
  return result;
}
int LogTexts(const LegacyTexts& texts, LegacyTags& tags) {
  return WithTagMap(tags, [&](ns_orbo_telemetry::OrboLogTagMap& map) {
    return EventTrack::AddEventTrackingLog(texts.first, texts.second, texts.third, texts.fourth, map,
                                           tags.priority);
  });
}
int LogCodes(const LegacyCodes& codes) {
  return EventTrack::AddEventTrackingLog(codes.client_type, codes.location, codes.event, codes.sub_event);
}
int LogCodesWithTags(const LegacyCodes& codes, LegacyTags& tags) {
  return WithTagMap(tags, [&](ns_orbo_telemetry::OrboLogTagMap& map) {
    return EventTrack::AddEventTrackingLog(codes.client_type, codes.location, codes.event, codes.sub_event,
                                           map, tags.priority);
  });
}
int LogInMeeting(const LegacyCodes& codes, LegacyTags& tags) {
  return WithTagMap(tags, [&](ns_orbo_telemetry::OrboLogTagMap& map) {
    return EventTrack::AddInMeetingEventTrackingLog(codes.event, codes.sub_event, map);
  });
}

}  // namespace meeting_side

OET_REPLAY_BIND(meeting_side::EncodedText, "EncodedText", OET_REPLAY_FIELD(text))

OET_REPLAY_BIND(meeting_side::JoinMeetingWords, "JoinMeetingWords", OET_REPLAY_FIELD(interaction_word),
                OET_REPLAY_FIELD(action_word), OET_REPLAY_FIELD(first_flag), OET_REPLAY_FIELD(second_flag))

OET_REPLAY_BIND(meeting_side::LegacyTexts, "LegacyTexts", OET_REPLAY_FIELD(first), OET_REPLAY_FIELD(second),
                OET_REPLAY_FIELD(third), OET_REPLAY_FIELD(fourth))

OET_REPLAY_BIND(meeting_side::LegacyCodes, "LegacyCodes", OET_REPLAY_FIELD(client_type),
                OET_REPLAY_FIELD(location), OET_REPLAY_FIELD(event), OET_REPLAY_FIELD(sub_event))

OET_REPLAY_BIND(meeting_side::LegacyTag, "LegacyTag", OET_REPLAY_FIELD(name), OET_REPLAY_FIELD(text))

OET_REPLAY_BIND(meeting_side::LegacyTags, "LegacyTags", OET_REPLAY_FIELD(tags), OET_REPLAY_FIELD(priority))

// ---- Exports ----

const std::vector<ExportEntry>& Exports() {
  static const std::vector<ExportEntry> exports{
      Export("OrboPTPAAP::TrackingPTInteractEvent", &TrackingPTInteractEvent, {"tracking", "info"}),
      Export("OrboPTPAAP::TrackingHomeTabInteractEvent", &TrackingHomeTabInteractEvent, {"tracking", "info"}),
      Export("OrboPTPAAP::StoreMeetingInfo4PostEvents", &StoreMeetingInfo4PostEvents, {"info"}),
      Export("OrboPTPAAP::TrackingPTSearchEvent", &TrackingPTSearchEvent, {"tracking", "info"}),
      Export("OrboPTPAAP::TrackingPTSearchEventV2", &TrackingPTSearchEventV2, {"tracking", "info"}),
      Export("OrboPTPAAP::RetrieveClientProductInfo", &RetrieveClientProductInfo, {"info"}),
      Export("OrboPTPAAP::RetrieveClientDeviceInfo", &RetrieveClientDeviceInfo, {"info"}),
      Export("OrboPTPAAP::TrackingSigninInteractEvent", &TrackingSigninInteractEvent, {"tracking", "info"}),
      Export("OrboPTPAAP::TrackingBasicInteractEvent", &TrackingBasicInteractEvent, {"tracking", "info"}),
      Export("OrboPTPAAP::TrackingPhoneInteractEvent", &TrackingPhoneInteractEvent, {"tracking", "info"}),
      Export("OrboPTPAAP::TrackingORPhoneInteractEvent", &TrackingORPhoneInteractEvent, {"tracking", "info"}),
      // Standalone events.
      Export("OrboPTPAAP::TrackingPTChatEvent", &TrackingPTChatEvent, {"tracking", "info"}),
      Export("OrboPTPAAP::TrackingPTChatEventV2", &TrackingPTChatEventV2, {"tracking", "info"}),
      Export("OrboPTPAAP::TrackingMeetingInteractEvent", &TrackingMeetingInteractEvent, {"tracking", "info"}),
      Export("OrboPTPAAP::TrackingPostMeetingEvent", &TrackingPostMeetingEvent, {"info"}),
      Export("OrboPTPAAP::TrackingClientInteractEvent", &TrackingClientInteractEvent, {"tracking", "info"}),
      Export("OrboPTPAAP::TrackingPerfMetricsInfo", &TrackingPerfMetricsInfo, {"tracking", "info"}),
      Export("OrboPTPAAP::TrackingNoticeInteractEvent", &TrackingNoticeInteractEvent, {"tracking", "info"}),
      Export("OrboPTPAAP::TrackingPreferencesInteractEvent", &TrackingPreferencesInteractEvent,
             {"tracking", "info"}),
      // Performance reports and chat-module events.
      Export("OrboPTPAAP::TrackingApmIOSLaunchEvent", &TrackingApmIOSLaunchEvent, {"info"}),
      Export("OrboPTPAAP::TrackingApmMacLaunchEvent", &TrackingApmMacLaunchEvent, {"info"}),
      Export("OrboPTPAAP::TrackingApmMacRuntimeEvent", &TrackingApmMacRuntimeEvent, {"info"}),
      Export("OrboPTPAAP::TrackingApmMacFreezeEvent", &TrackingApmMacFreezeEvent, {"info"}),
      Export("OrboPTPAAP::TrackingApmAndroidLaunchEvent", &TrackingApmAndroidLaunchEvent, {"info"}),
      Export("OrboPTPAAP::TrackingApmAndroidPageEvent", &TrackingApmAndroidPageEvent, {"info"}),
      Export("OrboPTPAAP::TrackingApmIOSMetricKitEvent", &TrackingApmIOSMetricKitEvent, {"info"}),
      Export("OrboPTPAAP::TrackingApmIOSMetricKitDataEvent", &TrackingApmIOSMetricKitDataEvent, {"samples"}),
      Export("OrboPTPAAP::TrackingApmClientCrashEvent", &TrackingApmClientCrashEvent, {"info"}),
      Export("OrboPTPAAP::TrackingPTChatMessageModuleEvent", &TrackingPTChatMessageModuleEvent,
             {"tracking", "info"}),
      Export("OrboPTPAAP::TrackingPTChatWebServiceModuleEvent", &TrackingPTChatWebServiceModuleEvent,
             {"tracking", "info"}),
      Export("OrboPTPAAP::TrackingPTChatDBInteractEvent", &TrackingPTChatDBInteractEvent,
             {"tracking", "info"}),
      Export("OrboPTPAAP::TrackingPTChatFileTransferInteractEvent", &TrackingPTChatFileTransferInteractEvent,
             {"tracking", "info"}),
      Export("OrboPTPAAP::TrackingPTChatE2EDecodeInteractEvent", &TrackingPTChatE2EDecodeInteractEvent,
             {"tracking", "info"}),
      // Meeting side.
      Export("OrboPTPAAP::TrackingOUIFrameworkInteract", &TrackingOUIFrameworkInteract, {"tracking", "info"}),
      Export("PTJoinMeetingPAAP::FormatJoinMeetingInteractInfoAsString", &meeting_side::FormatJoinMeeting,
             {"info", "encoded"}),
      Export("PTJoinMeetingPAAP::ParseJoinMeetingInterfactInfoFromString", &meeting_side::ParseJoinMeeting,
             {"words", "encoded"}),
      Export("PTJoinMeetingPAAP::TrackingPTJoinMeetingInteractEvent", &meeting_side::TrackJoinMeeting,
             {"encoded", "tracking"}),
      Export("OrboSettingPAAP::FormatSettingInteractInfoAsString", &meeting_side::FormatSetting,
             {"info", "encoded"}),
      Export("OrboSettingPAAP::ParseSettingInterfactInfoFromString", &meeting_side::ParseSetting,
             {"info", "encoded"}),
      Export("OrboSettingPAAP::TrackingSettingInteractEvent", &meeting_side::TrackSetting,
             {"encoded", "tracking"}),
      Export("OrboClipsPAAP::TrackingClipsInteractEvent", &OrboClipsPAAP::TrackingClipsInteractEvent,
             {"info", "config", "user"}),
      Export("OrboPAAP::TrackingMeetingInteractEvent", &OrboPAAP::TrackingMeetingInteractEvent,
             {"tracking", "info"}),
      Export("OrboPAAP::TrackingOUIFrameworkInteract", &OrboPAAP::TrackingOUIFrameworkInteract,
             {"tracking", "info"}),
      Export("OrboPAAP::TrackingNoticeInteractEvent", &OrboPAAP::TrackingNoticeInteractEvent,
             {"tracking", "info"}),
      Export("OrboPAAP::TrackingClientInteractEvent", &OrboPAAP::TrackingClientInteractEvent,
             {"tracking", "info"}),
      Export("EventTrack::AddEventTrackingLog(texts)", &meeting_side::LogTexts, {"texts", "tags"}),
      Export("EventTrack::AddEventTrackingLog(codes)", &meeting_side::LogCodes, {"codes"}),
      Export("EventTrack::AddEventTrackingLog(codes, tags)", &meeting_side::LogCodesWithTags,
             {"codes", "tags"}),
      Export("EventTrack::AddInMeetingEventTrackingLog", &meeting_side::LogInMeeting, {"codes", "tags"}),
  };
  return exports;
}

const ExportEntry* FindExport(const std::string& name) {
  return FindByName(Exports(), name);
}

const ExportEntry* ResolveExport(const std::string& script_name, const Json& line, Issues& issues) {
  if (const ExportEntry* exact = FindExport(script_name)) return exact;
  std::vector<const ExportEntry*> overloads;
  for (const auto& entry : Exports()) {
    if (entry.script_name == script_name) overloads.push_back(&entry);
  }
  if (overloads.empty()) {
    issues.AddField("call", "unknown export \"" + script_name + "\"");
    return nullptr;
  }
  std::vector<std::string> given;
  for (auto it = line.begin(); it != line.end(); ++it) {
    if (std::find(ScriptKeys().begin(), ScriptKeys().end(), it.key()) == ScriptKeys().end())
      given.push_back(it.key());
  }
  const auto takes_all = [&given](const ExportEntry* entry) {
    return std::all_of(given.begin(), given.end(), [entry](const std::string& argument) {
      return std::find(entry->arguments.begin(), entry->arguments.end(), argument) != entry->arguments.end();
    });
  };
  std::vector<const ExportEntry*> fitting;
  for (const ExportEntry* entry : overloads) {
    if (!takes_all(entry)) continue;
    if (!fitting.empty() && entry->arguments.size() < fitting.front()->arguments.size()) fitting.clear();
    if (fitting.empty() || entry->arguments.size() == fitting.front()->arguments.size())
      fitting.push_back(entry);
  }
  if (fitting.size() == 1) return fitting.front();
  std::string names;
  for (const ExportEntry* entry : fitting.empty() ? overloads : fitting)
    names += (names.empty() ? "" : ", ") + entry->name.substr(script_name.size());
  std::string arguments;
  for (const auto& argument : given)
    arguments += (arguments.empty() ? "" : ", ") + argument;
  issues.AddField("call", fitting.empty()
                              ? "no overload of " + script_name + " takes the arguments " +
                                    (arguments.empty() ? "given" : arguments) + " (overloads: " + names + ")"
                              : "the arguments " + (arguments.empty() ? "given" : arguments) +
                                    " fit the overloads " + names +
                                    " alike; give one an argument the others do not take");
  return nullptr;
}

}  // namespace oet_replay
