// The account's domain label: the part of the account's web URL that names the account, as events
// and the product facts carry it.
#pragma once

#include "core/made_text.h"
#include "oKstPlatform/kst_string.h"
#include "oKstPlatform/web_service.h"

namespace oet {

// The account's domain label found in `url`, as UTF-8 (up to a NUL, as every host string is read):
//  - "dev" when the host's URL utilities say the URL belongs to a development environment;
//  - otherwise the text between "https://" and the product's web domain suffix (for example "acme"
//    for "https://acme.orbo.example.com" with the default suffixes), when the URL has "https://" and
//    ends exactly with one of the suffixes (no path, port, query or trailing slash) and something
//    lies between the two;
//  - otherwise "aw1".
// "dev" and "aw1" are markers the back end expects; they are never replaced by an empty label. Both
// searches are case-sensitive. The suffixes are the build setting OET_WEB_DOMAIN_SUFFIXES.
MadeText DomainLabelOfUrl(const Kst::CStringT<wchar_t>& url);

// When the account's web URL is asked for: only when the stored label is empty, or every time (the
// OUI-framework event asks for both, label first, on every call).
enum class WebUrlRead { kWhenLabelEmpty, kAlways };

// The account's domain label as the web service knows it, as UTF-8: its stored label (operation 35), or,
// when that is empty, DomainLabelOfUrl of its web URL (operation 37), converted straight from the
// web service's answers (no wide copy of the label).
MadeText AccountDomainLabelUtf8(ICVWebServiceAPI& web_service, WebUrlRead read = WebUrlRead::kWhenLabelEmpty);

}  // namespace oet
