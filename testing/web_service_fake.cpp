#include "testing/web_service_fake.h"

#include <stdexcept>
#include <string>
#include <utility>

#include "oKstPlatform/kst_convert.h"
#include "testing/recording_host.h"

namespace oet_testing {
namespace {

// FindKey answers "key:<identifier>", so that a caller handing ResolveShortKey anything but that
// intermediate key gets nothing.
constexpr char kIntermediateKeyPrefix[] = "key:";

Call HostCall(const char* name, std::vector<OpValue> args = {}) {
  Call call;
  call.fn = Call::Fn::kHostCall;
  call.name = name;
  call.args = std::move(args);
  return call;
}

Call Answered(Call call, OpValue answer) {
  call.answer = std::move(answer);
  call.answered = true;
  return call;
}

}  // namespace

void WebServiceFake::SetContextAnswer(const ContextAnswer& answer) {
  std::lock_guard<std::mutex> lock(mutex_);
  context_ = answer;
}

void WebServiceFake::SetAccountDomain(const std::string& utf8) {
  std::lock_guard<std::mutex> lock(mutex_);
  domain_ = utf8;
}

void WebServiceFake::SetAccountWebUrl(const std::string& utf8) {
  std::lock_guard<std::mutex> lock(mutex_);
  web_url_ = utf8;
}

void WebServiceFake::SetShortKey(const std::string& identifier, const std::string& short_key) {
  std::lock_guard<std::mutex> lock(mutex_);
  short_keys_[identifier] = short_key;
}

void WebServiceFake::ClearShortKeys() {
  std::lock_guard<std::mutex> lock(mutex_);
  short_keys_.clear();
}

void WebServiceFake::SetLookupPresent(bool present) {
  std::lock_guard<std::mutex> lock(mutex_);
  lookup_present_ = present;
}

void WebServiceFake::SetThrowing(bool throwing) {
  throwing_.store(throwing);
}

int WebServiceFake::CallCount(int op) const {
  std::lock_guard<std::mutex> lock(mutex_);
  const auto it = calls_.find(op);
  return it == calls_.end() ? 0 : it->second;
}

void WebServiceFake::SetRecorder(std::function<void(Call)> recorder) {
  std::lock_guard<std::mutex> lock(mutex_);
  recorder_ = std::move(recorder);
}

void WebServiceFake::Report(Call call) {
  std::function<void(Call)> recorder;
  {
    std::lock_guard<std::mutex> lock(mutex_);
    recorder = recorder_;
  }
  if (recorder) recorder(std::move(call));
}

void WebServiceFake::Enter(int op, const Call& call) {
  {
    std::lock_guard<std::mutex> lock(mutex_);
    ++calls_[op];
  }
  if (throwing_.load()) {
    Call thrown = call;
    thrown.threw = true;
    Report(std::move(thrown));
    throw std::runtime_error("web service told to throw");
  }
}

Kst::CStringT<wchar_t> WebServiceFake::AnswerText(int op, const Call& call, const std::string& stored) {
  Enter(op, call);
  std::string text;
  {
    std::lock_guard<std::mutex> lock(mutex_);
    text = stored;
  }
  Report(Answered(call, text));
  return Kst::Utf8ToWide(text);
}

Kst::CStringT<wchar_t> WebServiceFake::GetAccountDomain(int32_t which) {
  HostBookkeeping bookkeeping;
  return AnswerText(35, HostCall("ICVWebServiceAPI::GetAccountDomain", {which}), domain_);
}

Kst::CStringT<wchar_t> WebServiceFake::GetAccountWebUrl(int32_t which, int32_t variant) {
  HostBookkeeping bookkeeping;
  return AnswerText(37, HostCall("ICVWebServiceAPI::GetAccountWebUrl", {which, variant}), web_url_);
}

void WebServiceFake::SetFillHook(std::function<void()> hook) {
  std::lock_guard<std::mutex> lock(mutex_);
  fill_hook_ = std::move(hook);
}

void WebServiceFake::FillClientContext(ClientContext& context) {
  std::function<void()> hook;
  {
    HostBookkeeping bookkeeping;
    const Call call = HostCall("ICVWebServiceAPI::FillClientContext");
    Enter(97, call);
    Report(call);
    std::lock_guard<std::mutex> lock(mutex_);
    hook = fill_hook_;
  }
  if (hook) hook();  // the library's own work again, should it call back
  HostBookkeeping bookkeeping;
  std::lock_guard<std::mutex> lock(mutex_);
  context.web_service_value = Kst::Utf8ToWide(context_.value);
  context.web_service_second = Kst::Utf8ToWide(context_.second);
  context.web_service_third = Kst::Utf8ToWide(context_.third);
  context.web_service_sixth = Kst::Utf8ToWide(context_.sixth);
}

ICVShortKeyLookup* WebServiceFake::GetShortKeyLookup() {
  HostBookkeeping bookkeeping;
  const Call call = HostCall("ICVWebServiceAPI::GetShortKeyLookup");
  Enter(100, call);
  bool present = false;
  {
    std::lock_guard<std::mutex> lock(mutex_);
    present = lookup_present_;
  }
  Report(Answered(call, present ? OpValue(std::string("short_key_lookup")) : OpValue()));
  return present ? this : nullptr;
}

// The identifier and the keys are shown as the library handed them, embedded NULs included.
int32_t WebServiceFake::FindKey(const Kst::CStringT<char>& identifier, Kst::CStringT<char>& key) {
  HostBookkeeping bookkeeping;
  const Call call = HostCall("ICVShortKeyLookup::FindKey", {identifier.str()});
  Enter(22, call);
  bool known = false;
  {
    std::lock_guard<std::mutex> lock(mutex_);
    known = short_keys_.count(identifier.c_str()) != 0;
  }
  if (known) key = (std::string(kIntermediateKeyPrefix) + identifier.c_str()).c_str();
  Report(Answered(call, known ? 1 : 0));
  return known ? 1 : 0;
}

void WebServiceFake::ResolveShortKey(const Kst::CStringT<char>& key, Kst::CStringT<char>& short_key) {
  HostBookkeeping bookkeeping;
  const Call call = HostCall("ICVShortKeyLookup::ResolveShortKey", {key.str()});
  Enter(25, call);
  {
    std::lock_guard<std::mutex> lock(mutex_);
    // Only the intermediate key that FindKey wrote resolves; the identifier itself does not.
    const std::string text = key.c_str();
    const size_t prefix = sizeof kIntermediateKeyPrefix - 1;
    const auto it = text.compare(0, prefix, kIntermediateKeyPrefix) == 0
                        ? short_keys_.find(text.substr(prefix))
                        : short_keys_.end();
    if (it != short_keys_.end()) short_key = it->second.c_str();
  }
  Report(Answered(call, short_key.str()));  // the short key as the library finds it after the call
}

}  // namespace oet_testing
