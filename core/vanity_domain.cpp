#include "core/vanity_domain.h"

#include <string>
#include <string_view>

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
  const size_t start = static_cast<size_t>(scheme) + std::char_traits<wchar_t>::length(kScheme);

  // A suffix matches only where it ends the URL: its last occurrence then lies exactly at the end.
  const std::wstring_view text(url.c_str(), static_cast<size_t>(url.GetLength()));
  for (const wchar_t* suffix : kWebDomainSuffixes) {
    const size_t length = std::char_traits<wchar_t>::length(suffix);
    if (text.size() < length || text.compare(text.size() - length, length, suffix) != 0) continue;
    // The first suffix that ends the URL decides; with nothing between scheme and suffix the marker stays.
    const size_t pos = text.size() - length;
    if (start < pos) result = Kst::CStringT<wchar_t>(url.c_str() + start, static_cast<int>(pos - start));
    return;
  }
}

Kst::CStringT<wchar_t> AccountDomainLabel(ICVWebServiceAPI& web_service, WebUrlRead read) {
  Kst::CStringT<wchar_t> label = web_service.GetAccountDomain(0);
  if (read == WebUrlRead::kAlways || label.IsEmpty()) {
    const Kst::CStringT<wchar_t> url = web_service.GetAccountWebUrl(0, 0);
    if (label.IsEmpty()) ExtractVanityDomain(url, label);
  }
  return label;
}

}  // namespace oet
