// Reports of the chat module's inner working: message handling, the chat web-service calls, the chat
// database, file transfers and end-to-end decryption.
//
// Each call sends one event:
//   context (203): the chat tracking-info entity (130) with the two tracking values, the markers 121
//                  and 128, then the module's body entity filled from the record;
//   body (201):    a small header entity with the interaction id.
// Entities the host does not give are left out of the list; the list is attached even when empty.
// Each export needs the web service (only its presence) and the telemetry service, and creates the
// client-context cache on first use (without reading it).
//
// | Export                                  | Body | Header | Codes | Rate limit                        |
// |-----------------------------------------|------|--------|-------|-----------------------------------|
// | TrackingPTChatMessageModuleEvent        | 124  | 117    | 3, 1  | one call per second, always       |
// | TrackingPTChatWebServiceModuleEvent     | 131  | 120    | 3, 1  | none                              |
// | TrackingPTChatDBInteractEvent           | 113  | 114    | 3, 2  | one per second for id 165 only    |
// | TrackingPTChatFileTransferInteractEvent | 123  | 116    | 3, 2  | none                              |
// | TrackingPTChatE2EDecodeInteractEvent    | 122  | 117    | 3, 2  | one per second per id 182 to 184  |
//
// Rate limits: a call is dropped (0, nothing asked of the host) when less than 1000 ms of the host's
// clock have passed since the last accepted call of the same limit; a clock that moved back drops it
// too. An accepted call counts even when the event then fails for want of a service.
//
// Failures: no web service, no telemetry service or no event gives 0. When the host gives no header
// entity the call returns 0 and its event is destroyed: the library never leaves an event it created
// and did not submit behind in the host (the same rule holds for every failure after the event
// exists).
//
// Record members are named by position (field1 is the first member), except the interaction id and the
// body switch; their meaning is the chat module's. Wide texts go out as UTF-8, up to their first NUL.
// A member marked "as bool" goes out as true when it is not 0. The not_read_* members stand where the
// chat module keeps data of its own in the shared record: the library never reads them, and they keep
// the record's layout the one the chat module builds (checked below).
#pragma once

#include <cstddef>
#include <cstdint>

#include "oEventTracker/OrboPTPAAP/tracking.h"
#include "oEventTracker/api.h"
#include "oKstPlatform/kst_string.h"

namespace OrboPTPAAP {

// Message handling. Every body field is set, empty texts and 0 values included. Body operations are
// called in the order of fields 5, 6, 18, 8, 9, 7, 3, 4, 10, 11, 12, 13, 17, 14, 15, 16.
struct ChatMessageModuleInfo_s {
  int32_t field1 = 0;  // the header's interaction id (117, 2nd operation)
  int64_t field2 = 0;  // the header's module value (117, 4th operation)
  int32_t field3 = 0;  // as bool
  int32_t field4 = 0;  // as bool
  int64_t field5 = 0;
  int64_t field6 = 0;
  int64_t field7 = 0;
  Kst::CStringT<wchar_t> field8;
  Kst::CStringT<wchar_t> field9;
  Kst::CStringT<wchar_t> field10;
  Kst::CStringT<wchar_t> field11;
  Kst::CStringT<wchar_t> field12;
  Kst::CStringT<wchar_t> field13;
  Kst::CStringT<wchar_t> field14;
  Kst::CStringT<wchar_t> field15;
  Kst::CStringT<wchar_t> field16;
  int32_t field17 = 0;
  int32_t field18 = 0;
  int32_t with_body = 0;  // field 19: 0 sends the event without its body entity (124)
};

// A call of the chat web service. Every body field is set, empty texts and 0 values included; fields
// in declaration order except that field 9 goes before field 8. The header carries the interaction
// id 168.
struct WebServiceInfo_s {
  Kst::CStringT<wchar_t> field1;
  Kst::CStringT<wchar_t> field2;
  int64_t field3 = 0;
  int64_t field4 = 0;
  int64_t field5 = 0;
  int64_t field6 = 0;
  uint8_t not_read_1[4] = {};
  int32_t field7 = 0;  // as bool
  int64_t field8 = 0;
  int64_t field9 = 0;
  Kst::CStringT<wchar_t> field10;
  uint8_t not_read_2[8] = {};
  int32_t with_body = 0;  // field 11: 0 sends the event without its body entity (131)
};

// An interaction with the chat database. Empty texts clear their field and 64-bit values of 0 clear
// theirs, with two exceptions: an empty field2 goes out as "unknown", and a field4 of 0 as 6. Fields
// are sent in the order 1 to 4, 14 to 17, 5 to 13.
//
// The interaction id also chooses the context list and the rate limit: 162 puts the tracking-info
// entity first in the list, every other id sends the list without it; 165 is limited to one call per
// second; an id of 0 is not set on the header.
struct ChatDBInteractInfo_s {
  Kst::CStringT<wchar_t> field1;
  Kst::CStringT<wchar_t> field2;  // empty: "unknown"
  Kst::CStringT<wchar_t> field3;
  int32_t field4 = 0;  // 0: 6
  int64_t field5 = 0;
  int64_t field6 = 0;
  int64_t field7 = 0;
  int64_t field8 = 0;
  int64_t field9 = 0;
  int64_t field10 = 0;
  int64_t field11 = 0;
  int64_t field12 = 0;
  int64_t field13 = 0;
  int64_t field14 = 0;
  int64_t field15 = 0;
  int64_t field16 = 0;
  int64_t field17 = 0;
  uint8_t not_read_1[8] = {};
  int32_t interaction_id = 0;  // field 18
};

// A file transfer, fields sent in declaration order. Empty texts clear their field, except field5,
// which is sent only when not empty and otherwise left alone. The 64-bit fields 7, 27, 35 and 36 clear
// their field when 0; the other numbers are always sent. field2 and field3 send true when not 0 and
// nothing otherwise. An interaction id of 0 is not set on the header.
struct ChatFileTransferInteractInfo_s {
  int32_t field1 = 0;
  int32_t field2 = 0;  // not 0: true; 0: nothing
  int32_t field3 = 0;  // not 0: true; 0: nothing
  Kst::CStringT<wchar_t> field4;
  Kst::CStringT<wchar_t> field5;  // empty: nothing
  int32_t field6 = 0;             // as bool
  int64_t field7 = 0;             // 0 clears
  int64_t field8 = 0;
  uint8_t not_read_1[8] = {};
  Kst::CStringT<wchar_t> field9;
  int32_t field10 = 0;  // as bool
  Kst::CStringT<wchar_t> field11;
  Kst::CStringT<wchar_t> field12;
  Kst::CStringT<wchar_t> field13;
  int32_t field14 = 0;  // as bool
  int64_t field15 = 0;
  int32_t field16 = 0;  // as bool
  int32_t field17 = 0;  // as bool
  int32_t field18 = 0;  // as bool
  int32_t field19 = 0;  // as bool
  int32_t field20 = 0;  // as bool
  int32_t field21 = 0;  // as bool
  Kst::CStringT<wchar_t> field22;
  int64_t field23 = 0;
  Kst::CStringT<wchar_t> field24;
  Kst::CStringT<wchar_t> field25;
  int64_t field26 = 0;
  int64_t field27 = 0;  // 0 clears
  int32_t field28 = 0;  // as bool
  int32_t field29 = 0;  // as bool
  Kst::CStringT<wchar_t> field30;
  Kst::CStringT<wchar_t> field31;
  int64_t field32 = 0;
  int32_t field33 = 0;  // as bool
  Kst::CStringT<wchar_t> field34;
  int64_t field35 = 0;  // 0 clears
  int64_t field36 = 0;  // 0 clears
  int64_t field37 = 0;
  Kst::CStringT<wchar_t> field38;
  int64_t field39 = 0;
  uint8_t not_read_2[40] = {};
  int64_t field40 = 0;
  int64_t field41 = 0;
  int32_t interaction_id = 0;  // field 42
};

// An end-to-end decryption. Empty texts clear their field; the numbers are always sent. Only the
// interaction ids 182, 183 and 184 are reported (any other id returns 0 without asking the host for
// anything), each limited to one call per second on its own; the header always carries the id.
struct ChatE2EDecodeInfo_s {
  int64_t field1 = 0;
  Kst::CStringT<wchar_t> field2;
  Kst::CStringT<wchar_t> field3;
  Kst::CStringT<wchar_t> field4;
  int64_t field5 = 0;
  Kst::CStringT<wchar_t> field6;
  Kst::CStringT<wchar_t> field7;
  Kst::CStringT<wchar_t> field8;
  int32_t field9 = 0;          // as bool
  int32_t field10 = 0;         // as bool
  int32_t interaction_id = 0;  // field 11: 182 to 184
};

// The not-read members take exactly their bytes, right after the member before them, and the member
// after them follows at once (whatever the size of the host's wide string on the platform).
#define OET_CHAT_RECORD_GAP(Record, before, gap, after)                                     \
  static_assert(offsetof(Record, gap) == offsetof(Record, before) + sizeof(Record::before), \
                #Record ": " #gap " moved");                                                \
  static_assert(offsetof(Record, after) == offsetof(Record, gap) + sizeof(Record::gap),     \
                #Record ": " #after " moved")
OET_CHAT_RECORD_GAP(WebServiceInfo_s, field6, not_read_1, field7);
OET_CHAT_RECORD_GAP(WebServiceInfo_s, field10, not_read_2, with_body);
OET_CHAT_RECORD_GAP(ChatDBInteractInfo_s, field17, not_read_1, interaction_id);
OET_CHAT_RECORD_GAP(ChatFileTransferInteractInfo_s, field8, not_read_1, field9);
OET_CHAT_RECORD_GAP(ChatFileTransferInteractInfo_s, field39, not_read_2, field40);
#undef OET_CHAT_RECORD_GAP
static_assert(sizeof(WebServiceInfo_s::not_read_1) == 4 && sizeof(WebServiceInfo_s::not_read_2) == 8 &&
                  sizeof(ChatDBInteractInfo_s::not_read_1) == 8 &&
                  sizeof(ChatFileTransferInteractInfo_s::not_read_1) == 8 &&
                  sizeof(ChatFileTransferInteractInfo_s::not_read_2) == 40,
              "chat-module records: the chat module's own data has these sizes");

OET_API int TrackingPTChatMessageModuleEvent(const PTTrackingInfo_s& tracking,
                                             const ChatMessageModuleInfo_s& info);
OET_API int TrackingPTChatWebServiceModuleEvent(const PTTrackingInfo_s& tracking,
                                                const WebServiceInfo_s& info);
OET_API int TrackingPTChatDBInteractEvent(const PTTrackingInfo_s& tracking, const ChatDBInteractInfo_s& info);
OET_API int TrackingPTChatFileTransferInteractEvent(const PTTrackingInfo_s& tracking,
                                                    const ChatFileTransferInteractInfo_s& info);
OET_API int TrackingPTChatE2EDecodeInteractEvent(const PTTrackingInfo_s& tracking,
                                                 const ChatE2EDecodeInfo_s& info);

}  // namespace OrboPTPAAP
