#include "core/vanity_domain.h"

#include <cwchar>
#include <string>
#include <string_view>

#include "core/host.h"
#include "core/web_domains.h"
#include "oKstPlatform/url_utils.h"

namespace oet {
namespace {

// The account's label in `url`, as a view into it or one of the two markers.
std::wstring_view VanityLabel(const Kst::CStringT<wchar_t>& url) {
  IOrboUrlUtils* url_utils = GetOrboUrlUtils();
  if (url_utils != nullptr && url_utils->IsDevelopmentUrl(url) != 0) return L"dev";
  constexpr std::wstring_view kNoLabel = L"aw1";

  static constexpr wchar_t kScheme[] = L"https://";
  const int scheme = url.find(kScheme);
  if (scheme == Kst::CStringT<wchar_t>::npos) return kNoLabel;
  const size_t start = static_cast<size_t>(scheme) + std::char_traits<wchar_t>::length(kScheme);

  // A suffix matches only where it ends the URL: its last occurrence then lies exactly at the end.
  const std::wstring_view text(url.c_str(), static_cast<size_t>(url.GetLength()));
  for (const wchar_t* suffix : kWebDomainSuffixes) {
    const size_t length = std::char_traits<wchar_t>::length(suffix);
    if (text.size() < length || text.compare(text.size() - length, length, suffix) != 0) continue;
    // The first suffix that ends the URL decides; with nothing between scheme and suffix the marker stays.
    const size_t pos = text.size() - length;
    return start < pos ? text.substr(start, pos - start) : kNoLabel;
  }
  return kNoLabel;
}

// The label in `url` into `out`, read up to a NUL as every host string is.
void AssignLabelOfUrl(MadeText& out, const Kst::CStringT<wchar_t>& url) {
  const std::wstring_view found = VanityLabel(url);
  const wchar_t* nul = std::wmemchr(found.data(), L'\0', found.size());
  const int length = static_cast<int>(nul != nullptr ? nul - found.data() : found.size());
  AssignUtf8(out, found.data(), length, length);
}

}  // namespace

MadeText DomainLabelOfUrl(const Kst::CStringT<wchar_t>& url) {
  return MadeText([&](MadeText& label) { AssignLabelOfUrl(label, url); });
}

MadeText AccountDomainLabelUtf8(ICVWebServiceAPI& web_service, WebUrlRead read) {
  return MadeText([&](MadeText& label) {
    {
      const Kst::CStringT<wchar_t> stored = web_service.GetAccountDomain(0);
      AssignUtf8(label, stored.c_str(), -1, stored.GetLength());
    }
    if (!label.empty()) {  // as it goes out: a label that starts with NUL counts as empty
      if (read == WebUrlRead::kAlways) web_service.GetAccountWebUrl(0, 0);  // asked for, not needed
      return;
    }
    AssignLabelOfUrl(label, web_service.GetAccountWebUrl(0, 0));
  });
}

}  // namespace oet
