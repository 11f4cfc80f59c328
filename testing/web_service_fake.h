// A web service whose answers a test or the replay tool sets: the values it writes into the
// client-context record, the account's domain label and web URL, and the short-key lookup table.
// It counts the calls of each operation it implements, hands each call to a recorder (the recording
// host's list of host calls) and can be made to throw.
#pragma once

#include <atomic>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "oKstPlatform/web_service.h"
#include "testing/host_bookkeeping.h"

namespace oet_testing {

struct Call;

class WebServiceFake final : public ICVWebServiceAPI, public ICVShortKeyLookup {
 public:
  // What FillClientContext writes (UTF-8). An empty value leaves the cache unfilled.
  struct ContextAnswer {
    std::string value = "ws-value";
    std::string second;
    std::string third;
    std::string sixth;
  };

  void SetContextAnswer(const ContextAnswer& answer);
  void SetAccountDomain(const std::string& utf8);
  void SetAccountWebUrl(const std::string& utf8);
  void SetShortKey(const std::string& identifier, const std::string& short_key);
  void ClearShortKeys();
  void SetLookupPresent(bool present);
  // While set, every operation throws.
  void SetThrowing(bool throwing);
  // Runs `hook` inside every FillClientContext, before the record is written (a host that calls back
  // into the library, or waits for another thread, while it fills). Null removes it.
  void SetFillHook(std::function<void()> hook);

  // Calls of an operation so far, by its number (35, 37, 97, 100; 22 and 25 of the lookup).
  int CallCount(int op) const;
  // Receives every call as a host call (Call::Fn::kHostCall), in order: FillClientContext when it
  // starts, the others once they have answered; a call that throws is handed over marked as thrown.
  void SetRecorder(std::function<void(Call)> recorder);

  Kst::CStringT<wchar_t> GetAccountDomain(int32_t which) override;
  Kst::CStringT<wchar_t> GetAccountWebUrl(int32_t which, int32_t variant) override;
  void FillClientContext(ClientContext& context) override;
  ICVShortKeyLookup* GetShortKeyLookup() override;
  int32_t FindKey(const Kst::CStringT<char>& identifier, Kst::CStringT<char>& key) override;
  void ResolveShortKey(const Kst::CStringT<char>& key, Kst::CStringT<char>& short_key) override;

 private:
  // Counts a call of operation `op`; while throwing, reports `call` as thrown and throws.
  void Enter(int op, const Call& call);
  void Report(Call call);
  // Answers operation `op` with a copy of `stored` (read under the lock) as wide text, and reports it.
  Kst::CStringT<wchar_t> AnswerText(int op, const Call& call, const std::string& stored);

  mutable std::mutex mutex_;
  ContextAnswer context_;
  std::string domain_;
  std::string web_url_;
  std::map<std::string, std::string> short_keys_;
  bool lookup_present_ = true;
  std::atomic<bool> throwing_{false};
  std::map<int, int> calls_;
  std::function<void()> fill_hook_;
  std::function<void(Call)> recorder_;
};

}  // namespace oet_testing
