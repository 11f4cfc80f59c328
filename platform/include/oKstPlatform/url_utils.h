// The host's URL utilities (oNetUtils). The library asks one question of them: whether a web URL of
// the account belongs to a development environment.
#pragma once

#include <cstdint>
#include <functional>

#include "oKstPlatform/kst_export.h"
#include "oKstPlatform/kst_reserved.h"
#include "oKstPlatform/kst_string.h"

class IOrboUrlUtils {
 public:
  KST_RESERVED_OP(1)
  KST_RESERVED_OP(2)
  KST_RESERVED_OP(3)
  KST_RESERVED_OP(4)
  KST_RESERVED_OP(5)
  KST_RESERVED_OP(6)
  KST_RESERVED_OP(7)
  KST_RESERVED_OP(8)
  KST_RESERVED_OP(9)
  // 10: non-zero when the URL points at a development environment.
  virtual int32_t IsDevelopmentUrl(const Kst::CStringT<wchar_t>& url) = 0;

 protected:
  ~IOrboUrlUtils() = default;
};

// The process's URL utilities, or null while a host program has made them absent.
KST_API IOrboUrlUtils* GetOrboUrlUtils();

// Host-program side. By default the utilities are present and answer "not development" for every URL.
namespace KstHost {
KST_API void SetUrlUtilsPresent(bool present);
// An empty function restores the default answer.
KST_API void SetDevelopmentUrlPredicate(std::function<bool(const Kst::CStringT<wchar_t>&)> predicate);
}  // namespace KstHost
