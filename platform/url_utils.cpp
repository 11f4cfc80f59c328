#include "oKstPlatform/url_utils.h"

#include <atomic>
#include <mutex>
#include <utility>

#include "oKstPlatform/kst_convert.h"
#include "observer.h"

namespace {

class UrlUtils final : public IOrboUrlUtils {
 public:
  int32_t IsDevelopmentUrl(const Kst::CStringT<wchar_t>& url) override {
    std::function<bool(const Kst::CStringT<wchar_t>&)> predicate;
    {
      std::lock_guard<std::mutex> lock(mutex);
      predicate = this->predicate;
    }
    const int32_t answer = predicate && predicate(url) ? 1 : 0;
    if (kst_observer::Current() != nullptr)
      kst_observer::Report(KstHost::PlatformFunction::kIsDevelopmentUrl, Kst::WideToUtf8(url), answer);
    return answer;
  }
  std::mutex mutex;
  std::function<bool(const Kst::CStringT<wchar_t>&)> predicate;
  std::atomic<bool> present{true};
};

// Never destroyed, like the registry: a library called from a client's exit path still finds it.
UrlUtils& TheUrlUtils() {
  static UrlUtils& utils = *new UrlUtils;
  return utils;
}

}  // namespace

IOrboUrlUtils* GetOrboUrlUtils() {
  IOrboUrlUtils* answer = TheUrlUtils().present.load() ? &TheUrlUtils() : nullptr;
  kst_observer::Report(KstHost::PlatformFunction::kGetOrboUrlUtils, {}, 0, answer);
  return answer;
}

namespace KstHost {

void SetUrlUtilsPresent(bool present) {
  TheUrlUtils().present.store(present);
}

void SetDevelopmentUrlPredicate(std::function<bool(const Kst::CStringT<wchar_t>&)> predicate) {
  std::lock_guard<std::mutex> lock(TheUrlUtils().mutex);
  TheUrlUtils().predicate = std::move(predicate);
}

}  // namespace KstHost
