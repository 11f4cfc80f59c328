#include "oKstPlatform/chat_metrics.h"

#include <atomic>
#include <cstddef>
#include <map>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include "oKstPlatform/host_control.h"
#include "observer.h"

namespace {

using KstHost::PlatformFunction;

// The host program's words (KstHost::SetMetricWord), by word function and value. A change publishes
// a new table; the word functions read the current one without a lock and write nothing. Tables are
// kept for the whole process (a reader may still hold one a writer has just replaced); a host program
// changes them rarely.
using WordTable = std::map<std::pair<PlatformFunction, int32_t>, std::string>;
std::atomic<const WordTable*> g_words{nullptr};
std::mutex g_words_mutex;  // among writers

std::vector<std::unique_ptr<const WordTable>>& KeptTables() {
  static auto& tables = *new std::vector<std::unique_ptr<const WordTable>>;
  return tables;
}

// Publishes `table` (null: no words of the host program's). Writers only, under g_words_mutex.
void Publish(std::unique_ptr<const WordTable> table) {
  g_words.store(table.get(), std::memory_order_release);
  if (table != nullptr) KeptTables().push_back(std::move(table));
}

// The word at `value` in `words` (whose entry 0 is ""), or "" outside the table, unless the host
// program gave a word of its own.
template <class E, size_t N>
std::string WordOf(E value, const char* const (&words)[N], PlatformFunction function) {
  const auto index = static_cast<int32_t>(value);
  const char* word = index > 0 && static_cast<size_t>(index) < N ? words[index] : "";
  if (const WordTable* table = g_words.load(std::memory_order_acquire)) {
    const auto it = table->find({function, index});
    if (it != table->end()) word = it->second.c_str();
  }
  kst_observer::Report(function, word, index);
  return word;
}

constexpr const char* kFetchEventWords[] = {"",
                                            "fetch_contacts",
                                            "fetch_sessions",
                                            "fetch_history",
                                            "fetch_channels",
                                            "fetch_unread_counts",
                                            "fetch_presence"};
constexpr const char* kFetchHandlerEventWords[] = {"", "fetch_handler_parse", "fetch_handler_store",
                                                   "fetch_handler_notify", "fetch_handler_timeout"};
constexpr const char* kFileEventWords[] = {
    "", "file_upload", "file_download", "file_preview", "file_upload_failed", "file_download_failed"};
constexpr const char* kHeartBeatEventWords[] = {"", "heartbeat_sent", "heartbeat_timeout",
                                                "network_disconnect", "network_reconnect"};
constexpr const char* kLoginEventWords[] = {"",        "login_start", "login_success", "login_failed",
                                            "relogin", "signoff"};
constexpr const char* kMessageEventWords[] = {"",
                                              "message_send",
                                              "message_receive",
                                              "message_send_failed",
                                              "message_render",
                                              "message_edit",
                                              "message_delete"};
constexpr const char* kMessageHandlerEventWords[] = {"", "message_handler_queue", "message_handler_decode",
                                                     "message_handler_store", "message_handler_notify"};
constexpr const char* kPlatformEventWords[] = {
    "", "app_launch", "app_foreground", "app_background", "webview_load", "webview_error", "memory_warning"};
constexpr const char* kSpecialEventWords[] = {"", "tp_on_tracking", "tp_on_data_indicate", "tp_on_connect",
                                              "tp_on_disconnect"};

}  // namespace

std::string MetricsFetchEventToString(MetricsFetchEvent value) {
  return WordOf(value, kFetchEventWords, PlatformFunction::kMetricsFetchEventToString);
}

std::string MetricsFetchHandlerEventToString(MetricsFetchHandlerEvent value) {
  return WordOf(value, kFetchHandlerEventWords, PlatformFunction::kMetricsFetchHandlerEventToString);
}

std::string MetricsFileEventToString(MetricsFileEvent value) {
  return WordOf(value, kFileEventWords, PlatformFunction::kMetricsFileEventToString);
}

std::string MetricsHeartBeatEventToString(MetricsHeartBeatEvent value) {
  return WordOf(value, kHeartBeatEventWords, PlatformFunction::kMetricsHeartBeatEventToString);
}

std::string MetricsLoginEventToString(MetricsLoginEvent value) {
  return WordOf(value, kLoginEventWords, PlatformFunction::kMetricsLoginEventToString);
}

std::string MetricsMessageEventToString(MetricsMessageEvent value) {
  return WordOf(value, kMessageEventWords, PlatformFunction::kMetricsMessageEventToString);
}

std::string MetricsMessageHandlerEventToString(MetricsMessageHandlerEvent value) {
  return WordOf(value, kMessageHandlerEventWords, PlatformFunction::kMetricsMessageHandlerEventToString);
}

std::string MetricsPlatformEventToString(MetricsPlatformEvent value) {
  return WordOf(value, kPlatformEventWords, PlatformFunction::kMetricsPlatformEventToString);
}

std::string MetricsSpecialEventToString(MetricsSpecialEvent value) {
  return WordOf(value, kSpecialEventWords, PlatformFunction::kMetricsSpecialEventToString);
}

namespace KstHost {

void SetMetricWord(PlatformFunction function, int32_t value, const std::string& word) {
  std::lock_guard<std::mutex> lock(g_words_mutex);
  const WordTable* current = g_words.load(std::memory_order_relaxed);
  auto table = std::make_unique<WordTable>(current == nullptr ? WordTable() : *current);
  (*table)[{function, value}] = word;
  Publish(std::move(table));
}

void ClearMetricWords() {
  std::lock_guard<std::mutex> lock(g_words_mutex);
  if (g_words.load(std::memory_order_relaxed) != nullptr) Publish(nullptr);
}

}  // namespace KstHost
