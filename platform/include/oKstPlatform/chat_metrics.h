// The chat module's performance-metric events and their words (the host's base library, Kstlib).
//
// The chat module names each measurement it reports by one value of one of nine enumerations, one per
// category. Each enumeration has a word function that gives a value's word: the event name under which
// the back end files the measurement. The words belong to the host; the tracking library only asks for
// them. Each enumerator below shows its word. In every enumeration 0 means "no event of this category"
// and gives the empty word, as does any value not listed. The functions are thread safe.
//
// Five of the words name noisy events that the performance-metrics event sends at most once a second:
// "webview_error", "network_disconnect", "signoff", "tp_on_tracking" and "tp_on_data_indicate".
#pragma once

#include <cstdint>
#include <string>

#include "oKstPlatform/kst_export.h"

// Fetching chat data from the server.
enum class MetricsFetchEvent : int32_t {
  kNone = 0,          // ""
  kContacts = 1,      // "fetch_contacts"
  kSessions = 2,      // "fetch_sessions"
  kHistory = 3,       // "fetch_history"
  kChannels = 4,      // "fetch_channels"
  kUnreadCounts = 5,  // "fetch_unread_counts"
  kPresence = 6,      // "fetch_presence"
};

// Handling what a fetch brought back.
enum class MetricsFetchHandlerEvent : int32_t {
  kNone = 0,     // ""
  kParse = 1,    // "fetch_handler_parse"
  kStore = 2,    // "fetch_handler_store"
  kNotify = 3,   // "fetch_handler_notify"
  kTimeout = 4,  // "fetch_handler_timeout"
};

// File transfers.
enum class MetricsFileEvent : int32_t {
  kNone = 0,            // ""
  kUpload = 1,          // "file_upload"
  kDownload = 2,        // "file_download"
  kPreview = 3,         // "file_preview"
  kUploadFailed = 4,    // "file_upload_failed"
  kDownloadFailed = 5,  // "file_download_failed"
};

// The connection's heartbeat and the network under it.
enum class MetricsHeartBeatEvent : int32_t {
  kNone = 0,               // ""
  kSent = 1,               // "heartbeat_sent"
  kTimeout = 2,            // "heartbeat_timeout"
  kNetworkDisconnect = 3,  // "network_disconnect"
  kNetworkReconnect = 4,   // "network_reconnect"
};

// Signing the chat module in and out.
enum class MetricsLoginEvent : int32_t {
  kNone = 0,     // ""
  kStart = 1,    // "login_start"
  kSuccess = 2,  // "login_success"
  kFailed = 3,   // "login_failed"
  kRelogin = 4,  // "relogin"
  kSignoff = 5,  // "signoff"
};

// Messages as the user sees them.
enum class MetricsMessageEvent : int32_t {
  kNone = 0,        // ""
  kSend = 1,        // "message_send"
  kReceive = 2,     // "message_receive"
  kSendFailed = 3,  // "message_send_failed"
  kRender = 4,      // "message_render"
  kEdit = 5,        // "message_edit"
  kDelete = 6,      // "message_delete"
};

// The message pipeline behind them.
enum class MetricsMessageHandlerEvent : int32_t {
  kNone = 0,    // ""
  kQueue = 1,   // "message_handler_queue"
  kDecode = 2,  // "message_handler_decode"
  kStore = 3,   // "message_handler_store"
  kNotify = 4,  // "message_handler_notify"
};

// The application and its embedded web views.
enum class MetricsPlatformEvent : int32_t {
  kNone = 0,           // ""
  kAppLaunch = 1,      // "app_launch"
  kAppForeground = 2,  // "app_foreground"
  kAppBackground = 3,  // "app_background"
  kWebviewLoad = 4,    // "webview_load"
  kWebviewError = 5,   // "webview_error"
  kMemoryWarning = 6,  // "memory_warning"
};

// Callbacks of the chat module's transport layer ("tp").
enum class MetricsSpecialEvent : int32_t {
  kNone = 0,              // ""
  kTpOnTracking = 1,      // "tp_on_tracking"
  kTpOnDataIndicate = 2,  // "tp_on_data_indicate"
  kTpOnConnect = 3,       // "tp_on_connect"
  kTpOnDisconnect = 4,    // "tp_on_disconnect"
};

// The word of each value (see the enumerators above); "" for 0 and for values not listed.
KST_API std::string MetricsFetchEventToString(MetricsFetchEvent value);
KST_API std::string MetricsFetchHandlerEventToString(MetricsFetchHandlerEvent value);
KST_API std::string MetricsFileEventToString(MetricsFileEvent value);
KST_API std::string MetricsHeartBeatEventToString(MetricsHeartBeatEvent value);
KST_API std::string MetricsLoginEventToString(MetricsLoginEvent value);
KST_API std::string MetricsMessageEventToString(MetricsMessageEvent value);
KST_API std::string MetricsMessageHandlerEventToString(MetricsMessageHandlerEvent value);
KST_API std::string MetricsPlatformEventToString(MetricsPlatformEvent value);
KST_API std::string MetricsSpecialEventToString(MetricsSpecialEvent value);
