// The host's code-page conversion between wide text and multi-byte text. Only code page 65001
// (UTF-8) is supported.
//
// Wide text is UTF-16 where wchar_t is 16 bits (Windows) and UTF-32 where it is 32 bits.
//
// Both directions share these rules:
//  - src_len counts source units; a negative src_len (normally -1) converts up to the first NUL.
//    With an explicit length, embedded NULs are converted like any other character.
//  - The result is the number of units written to dst, not counting the terminator. dst is always
//    NUL-terminated when dst_capacity > 0, and no more than dst_capacity units are written, the
//    terminator included.
//  - A character is never split: when the next whole character (a 1..4-byte UTF-8 sequence, or a
//    surrogate pair) does not fit before the terminator, the conversion stops there.
//  - A null src or dst, a negative dst_capacity or a code page other than KST_CP_UTF8 gives 0 (dst is
//    still terminated when it can be).
//  - Invalid input never fails the conversion; each bad piece becomes U+FFFD:
//      * UTF-8 -> wide: one U+FFFD per maximal ill-formed subpart (the longest prefix of a well-formed
//        sequence, or else a single byte), so overlong forms, truncated sequences, stray continuation
//        bytes, encoded surrogates, values above U+10FFFF and bytes F5..FF are all replaced;
//      * wide -> UTF-8: a lone surrogate (16-bit wchar_t), or a surrogate, negative value or value
//        above 0x10FFFF (32-bit wchar_t).
//
// Sizing: a wide unit never takes more than 4 UTF-8 bytes (a surrogate pair takes 4 bytes for two
// units), so 4 * src_len + 1 bytes always hold the whole conversion to UTF-8. A UTF-8 byte never
// yields more than one wide unit (a 4-byte sequence gives at most 2 units), so src_len + 1 wide units
// always hold the whole conversion to wide text.
#pragma once

#include <string>

#include "oKstPlatform/kst_export.h"
#include "oKstPlatform/kst_string.h"

constexpr unsigned KST_CP_UTF8 = 65001;

// Wide text -> UTF-8.
KST_API int kst_str_convert(unsigned code_page, const wchar_t* src, int src_len, char* dst, int dst_capacity);
// UTF-8 -> wide text.
KST_API int kst_str_convert(unsigned code_page, const char* src, int src_len, wchar_t* dst, int dst_capacity);

namespace Kst {

// Conveniences for host programs (tools and tests): the whole string converted, embedded NULs
// included, with invalid input replaced as described above.
KST_API std::string WideToUtf8(const CStringT<wchar_t>& text);
KST_API CStringT<wchar_t> Utf8ToWide(const std::string& text);

}  // namespace Kst
