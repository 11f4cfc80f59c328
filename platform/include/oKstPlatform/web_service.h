// The host's web service (module "com.Corvane.module.WebService"), as far as the library calls it:
// it fills the client-context record, tells the account's domain label and web URL, and offers a
// short-key lookup.
#pragma once

#include <cstdint>

#include "oKstPlatform/kst_reserved.h"
#include "oKstPlatform/kst_string.h"

inline constexpr char kWebServiceModule[] = "com.Corvane.module.WebService";
inline constexpr char kWebServiceClass[] = "orbous.class.ICVWebServiceAPI";

// Facts about the client and the machine that every event repeats. The record's layout (sixteen wide
// strings, then a 32-bit count) is shared with the web service, which fills the fields it knows in
// place (FillClientContext).
struct ClientContext {
  Kst::CStringT<wchar_t> web_service_value;   // filled by the web service; empty until it answers
  Kst::CStringT<wchar_t> web_service_second;  // filled by the web service
  Kst::CStringT<wchar_t> web_service_third;   // filled by the web service
  Kst::CStringT<wchar_t> os_name;
  Kst::CStringT<wchar_t> os_version;
  Kst::CStringT<wchar_t> web_service_sixth;  // filled by the web service
  Kst::CStringT<wchar_t> system_manufacturer;
  Kst::CStringT<wchar_t> system_product_name;
  Kst::CStringT<wchar_t> region;
  Kst::CStringT<wchar_t> gpu_model;
  Kst::CStringT<wchar_t> cpu_type;
  Kst::CStringT<wchar_t> cpu_name;
  Kst::CStringT<wchar_t> screen_size;
  Kst::CStringT<wchar_t> resolution;
  Kst::CStringT<wchar_t> network_type;
  Kst::CStringT<wchar_t> language;
  int32_t total_ram_gb = 0;
};

// Maps an identifier to a short key in two steps.
class ICVShortKeyLookup {
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
  KST_RESERVED_OP(10)
  KST_RESERVED_OP(11)
  KST_RESERVED_OP(12)
  KST_RESERVED_OP(13)
  KST_RESERVED_OP(14)
  KST_RESERVED_OP(15)
  KST_RESERVED_OP(16)
  KST_RESERVED_OP(17)
  KST_RESERVED_OP(18)
  KST_RESERVED_OP(19)
  KST_RESERVED_OP(20)
  KST_RESERVED_OP(21)
  // 22: looks the identifier up; on success writes an intermediate key and answers non-zero.
  virtual int32_t FindKey(const Kst::CStringT<char>& identifier, Kst::CStringT<char>& key) = 0;
  KST_RESERVED_OP(23)
  KST_RESERVED_OP(24)
  // 25: turns the intermediate key into the short key.
  virtual void ResolveShortKey(const Kst::CStringT<char>& key, Kst::CStringT<char>& short_key) = 0;

 protected:
  ~ICVShortKeyLookup() = default;
};

class ICVWebServiceAPI {
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
  KST_RESERVED_OP(10)
  KST_RESERVED_OP(11)
  KST_RESERVED_OP(12)
  KST_RESERVED_OP(13)
  KST_RESERVED_OP(14)
  KST_RESERVED_OP(15)
  KST_RESERVED_OP(16)
  KST_RESERVED_OP(17)
  KST_RESERVED_OP(18)
  KST_RESERVED_OP(19)
  KST_RESERVED_OP(20)
  KST_RESERVED_OP(21)
  KST_RESERVED_OP(22)
  KST_RESERVED_OP(23)
  KST_RESERVED_OP(24)
  KST_RESERVED_OP(25)
  KST_RESERVED_OP(26)
  KST_RESERVED_OP(27)
  KST_RESERVED_OP(28)
  KST_RESERVED_OP(29)
  KST_RESERVED_OP(30)
  KST_RESERVED_OP(31)
  KST_RESERVED_OP(32)
  KST_RESERVED_OP(33)
  KST_RESERVED_OP(34)
  // 35: the account's stored domain label (argument 0), possibly empty.
  virtual Kst::CStringT<wchar_t> GetAccountDomain(int32_t which) = 0;
  KST_RESERVED_OP(36)
  // 37: a web URL of the account (arguments 0, 0).
  virtual Kst::CStringT<wchar_t> GetAccountWebUrl(int32_t which, int32_t variant) = 0;
  KST_RESERVED_OP(38)
  KST_RESERVED_OP(39)
  KST_RESERVED_OP(40)
  KST_RESERVED_OP(41)
  KST_RESERVED_OP(42)
  KST_RESERVED_OP(43)
  KST_RESERVED_OP(44)
  KST_RESERVED_OP(45)
  KST_RESERVED_OP(46)
  KST_RESERVED_OP(47)
  KST_RESERVED_OP(48)
  KST_RESERVED_OP(49)
  KST_RESERVED_OP(50)
  KST_RESERVED_OP(51)
  KST_RESERVED_OP(52)
  KST_RESERVED_OP(53)
  KST_RESERVED_OP(54)
  KST_RESERVED_OP(55)
  KST_RESERVED_OP(56)
  KST_RESERVED_OP(57)
  KST_RESERVED_OP(58)
  KST_RESERVED_OP(59)
  KST_RESERVED_OP(60)
  KST_RESERVED_OP(61)
  KST_RESERVED_OP(62)
  KST_RESERVED_OP(63)
  KST_RESERVED_OP(64)
  KST_RESERVED_OP(65)
  KST_RESERVED_OP(66)
  KST_RESERVED_OP(67)
  KST_RESERVED_OP(68)
  KST_RESERVED_OP(69)
  KST_RESERVED_OP(70)
  KST_RESERVED_OP(71)
  KST_RESERVED_OP(72)
  KST_RESERVED_OP(73)
  KST_RESERVED_OP(74)
  KST_RESERVED_OP(75)
  KST_RESERVED_OP(76)
  KST_RESERVED_OP(77)
  KST_RESERVED_OP(78)
  KST_RESERVED_OP(79)
  KST_RESERVED_OP(80)
  KST_RESERVED_OP(81)
  KST_RESERVED_OP(82)
  KST_RESERVED_OP(83)
  KST_RESERVED_OP(84)
  KST_RESERVED_OP(85)
  KST_RESERVED_OP(86)
  KST_RESERVED_OP(87)
  KST_RESERVED_OP(88)
  KST_RESERVED_OP(89)
  KST_RESERVED_OP(90)
  KST_RESERVED_OP(91)
  KST_RESERVED_OP(92)
  KST_RESERVED_OP(93)
  KST_RESERVED_OP(94)
  KST_RESERVED_OP(95)
  KST_RESERVED_OP(96)
  // 97: fills the fields of the record that the web service knows, in place.
  virtual void FillClientContext(ClientContext& context) = 0;
  KST_RESERVED_OP(98)
  KST_RESERVED_OP(99)
  // 100: the short-key lookup, or null.
  virtual ICVShortKeyLookup* GetShortKeyLookup() = 0;

 protected:
  ~ICVWebServiceAPI() = default;
};
