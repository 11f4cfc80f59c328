#include "core/vanity_domain.h"

#include "core/web_domains.h"
#include "platform/url_utils.h"

namespace oet {

void ExtractVanityDomain(const Kst::CStringT<wchar_t>& url, Kst::CStringT<wchar_t>& result) {
  IOrboUrlUtils* url_utils = GetOrboUrlUtils();
  if (url_utils != nullptr && url_utils->IsDevelopmentUrl(url) != 0) {
    result = L"dev";
    return;
  }
  result = L"aw1";

  static constexpr wchar_t kScheme[] = L"https://";
  const int scheme = url.find(kScheme);
  if (scheme == Kst::CStringT<wchar_t>::npos) return;
  const int start = scheme + static_cast<int>(sizeof kScheme / sizeof kScheme[0] - 1);

  for (const wchar_t* suffix : kWebDomainSuffixes) {
    const Kst::CStringT<wchar_t> wanted(suffix);
    const int pos = url.rfind(wanted);
    if (pos == Kst::CStringT<wchar_t>::npos || pos != url.GetLength() - wanted.GetLength()) continue;
    // The first suffix that ends the URL decides; with nothing between scheme and suffix the marker stays.
    if (start < pos) result = url.substr(start, pos - start);
    return;
  }
}

Kst::CStringT<wchar_t> AccountDomainLabel(ICVWebServiceAPI& web_service) {
  Kst::CStringT<wchar_t> label = web_service.GetAccountDomain(0);
  if (label.IsEmpty()) {
    const Kst::CStringT<wchar_t> url = web_service.GetAccountWebUrl(0, 0);
    ExtractVanityDomain(url, label);
  }
  return label;
}

}  // namespace oet
