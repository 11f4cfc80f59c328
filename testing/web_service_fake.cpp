#include "testing/web_service_fake.h"

#include <stdexcept>
#include <string>
#include <utility>

#include "oKstPlatform/kst_convert.h"

namespace oet_testing {
namespace {

// FindKey answers "key:<identifier>", so that a caller handing ResolveShortKey anything but that
// intermediate key gets nothing.
constexpr char kIntermediateKeyPrefix[] = "key:";

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

void WebServiceFake::Count(int op) {
  {
    std::lock_guard<std::mutex> lock(mutex_);
    ++calls_[op];
  }
  if (throwing_.load()) throw std::runtime_error("web service told to throw");
}

Kst::CStringT<wchar_t> WebServiceFake::GetAccountDomain(int32_t /*which*/) {
  HostBookkeeping bookkeeping;
  Count(35);
  std::lock_guard<std::mutex> lock(mutex_);
  return Kst::Utf8ToWide(domain_);
}

Kst::CStringT<wchar_t> WebServiceFake::GetAccountWebUrl(int32_t /*which*/, int32_t /*variant*/) {
  HostBookkeeping bookkeeping;
  Count(37);
  std::lock_guard<std::mutex> lock(mutex_);
  return Kst::Utf8ToWide(web_url_);
}

void WebServiceFake::SetFillHook(std::function<void()> hook) {
  std::lock_guard<std::mutex> lock(mutex_);
  fill_hook_ = std::move(hook);
}

void WebServiceFake::FillClientContext(ClientContext& context) {
  std::function<void()> hook;
  {
    HostBookkeeping bookkeeping;
    Count(97);
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
  Count(100);
  std::lock_guard<std::mutex> lock(mutex_);
  return lookup_present_ ? this : nullptr;
}

int32_t WebServiceFake::FindKey(const Kst::CStringT<char>& identifier, Kst::CStringT<char>& key) {
  HostBookkeeping bookkeeping;
  Count(22);
  std::lock_guard<std::mutex> lock(mutex_);
  if (short_keys_.count(identifier.c_str()) == 0) return 0;
  key = (std::string(kIntermediateKeyPrefix) + identifier.c_str()).c_str();
  return 1;
}

void WebServiceFake::ResolveShortKey(const Kst::CStringT<char>& key, Kst::CStringT<char>& short_key) {
  HostBookkeeping bookkeeping;
  Count(25);
  std::lock_guard<std::mutex> lock(mutex_);
  // Only the intermediate key that FindKey wrote resolves; the identifier itself does not.
  const std::string text = key.c_str();
  const size_t prefix = sizeof kIntermediateKeyPrefix - 1;
  if (text.compare(0, prefix, kIntermediateKeyPrefix) != 0) return;
  const auto it = short_keys_.find(text.substr(prefix));
  if (it != short_keys_.end()) short_key = it->second.c_str();
}

}  // namespace oet_testing
