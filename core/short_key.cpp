#include "core/short_key.h"

#include "core/client_context.h"
#include "core/host.h"

namespace oet {

Kst::CStringT<char> MapIdToShortKey(const Kst::CStringT<char>& identifier) {
  if (identifier.IsEmpty()) return Kst::CStringT<char>();
  EnsureClientContext();
  ICVWebServiceAPI* web_service = GetWebServiceApi();
  if (web_service == nullptr) return Kst::CStringT<char>();
  ICVShortKeyLookup* lookup = web_service->GetShortKeyLookup();
  if (lookup == nullptr) return Kst::CStringT<char>();

  Kst::CStringT<char> key;
  Kst::CStringT<char> short_key;
  if (lookup->FindKey(identifier, key) != 0) lookup->ResolveShortKey(key, short_key);
  if (short_key.GetLength() > kShortKeyMaxBytes) short_key = short_key.substr(0, kShortKeyMaxBytes);
  return short_key;
}

}  // namespace oet
