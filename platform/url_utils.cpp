#include "oKstPlatform/url_utils.h"

#include <atomic>
#include <mutex>
#include <utility>

namespace {

class UrlUtils final : public IOrboUrlUtils {
 public:
  int32_t IsDevelopmentUrl(const Kst::CStringT<wchar_t>& url) override {
    std::function<bool(const Kst::CStringT<wchar_t>&)> predicate;
    {
      std::lock_guard<std::mutex> lock(mutex);
      predicate = this->predicate;
    }
    return predicate && predicate(url) ? 1 : 0;
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
  return TheUrlUtils().present.load() ? &TheUrlUtils() : nullptr;
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
