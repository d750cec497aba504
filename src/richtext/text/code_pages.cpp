#include "richtext/text/code_pages.h"

#include <algorithm>
#include <array>
#include <memory>

#include <QHash>
#include <QStringDecoder>

namespace snipdeck {
namespace {

struct CodePageName {
  int codePage;
  const char* name;
};

// Names under which ICU knows the code pages; sorted by number. Macintosh Japanese, Chinese and Korean differ from the
// named encodings in a handful of characters only.
// clang-format off
constexpr CodePageName kNames[] = {
    {37, "ibm-37"},          {437, "ibm-437"},        {500, "ibm-500"},
    {708, "ISO-8859-6"},     {720, "ibm-720"},        {737, "ibm-737"},
    {775, "ibm-775"},        {819, "ISO-8859-1"},     {850, "ibm-850"},
    {852, "ibm-852"},        {855, "ibm-855"},        {857, "ibm-857"},
    {858, "ibm-858"},        {860, "ibm-860"},        {861, "ibm-861"},
    {862, "ibm-862"},        {863, "ibm-863"},        {864, "ibm-864"},
    {865, "ibm-865"},        {866, "ibm-866"},        {869, "ibm-869"},
    {874, "windows-874"},    {932, "windows-31j"},    {936, "GBK"},
    {949, "windows-949"},    {950, "windows-950"},    {1200, "UTF-16LE"},
    {1201, "UTF-16BE"},      {1250, "windows-1250"},  {1251, "windows-1251"},
    {1252, "windows-1252"},  {1253, "windows-1253"},  {1254, "windows-1254"},
    {1255, "windows-1255"},  {1256, "windows-1256"},  {1257, "windows-1257"},
    {1258, "windows-1258"},  {1361, "johab"},         {10000, "macintosh"},
    {10001, "windows-31j"},  {10002, "windows-950"},  {10003, "windows-949"},
    {10006, "x-mac-greek"},  {10007, "x-mac-cyrillic"}, {10008, "GBK"},
    {10010, "x-mac-centraleurroman"}, {10017, "x-mac-cyrillic"}, {10021, "windows-874"},
    {10029, "x-mac-centraleurroman"}, {10081, "x-mac-turkish"}, {10082, "x-mac-centraleurroman"},
    {20127, "US-ASCII"},     {20866, "KOI8-R"},       {20932, "EUC-JP"},
    {21866, "KOI8-U"},       {28591, "ISO-8859-1"},   {28592, "ISO-8859-2"},
    {28593, "ISO-8859-3"},   {28594, "ISO-8859-4"},   {28595, "ISO-8859-5"},
    {28596, "ISO-8859-6"},   {28597, "ISO-8859-7"},   {28598, "ISO-8859-8"},
    {28599, "ISO-8859-9"},   {28603, "ISO-8859-13"},  {28605, "ISO-8859-15"},
    {50220, "ISO-2022-JP"},  {50222, "ISO-2022-JP"},  {51932, "EUC-JP"},
    {51936, "GB2312"},       {51949, "EUC-KR"},       {54936, "GB18030"},
    {65000, "UTF-7"},        {65001, "UTF-8"},
};
// clang-format on
static_assert(std::is_sorted(std::begin(kNames), std::end(kNames),
                             [](const auto& a, const auto& b) { return a.codePage < b.codePage; }));

const char* NameOf(int codePage) {
  const auto found = std::lower_bound(std::begin(kNames), std::end(kNames), codePage,
                                      [](const CodePageName& entry, int number) { return entry.codePage < number; });
  return found != std::end(kNames) && found->codePage == codePage ? found->name : nullptr;
}

bool IsUtf16(int codePage) {
  return codePage == 1200 || codePage == 1201;
}

bool IsAscii(QByteArrayView bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Bytes below 0x80 mean ASCII everywhere but in the EBCDIC pages, UTF-16 and the encodings with shift sequences.
bool IsAsciiSuperset(int codePage) {
  return codePage != 37 && codePage != 500 && !IsUtf16(codePage) && codePage != 50220 && codePage != 50222 &&
         codePage != 65000;
}

bool IsLeadByte(int codePage, unsigned char byte) {
  switch (codePage) {
    case 932:
    case 10001:
      return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
    case 936:
    case 949:
    case 950:
    case 10002:
    case 10003:
    case 10008:
    case 51936:
    case 51949:
      return byte >= 0x81 && byte <= 0xFE;
    case 1361:
      return byte >= 0x84 && byte <= 0xF9;
    default:
      return false;
  }
}

qsizetype IncompleteUtf8Tail(QByteArrayView bytes) {
  const qsizetype last = std::min<qsizetype>(bytes.size(), 3);
  for (qsizetype back = 1; back <= last; ++back) {
    const auto byte = static_cast<unsigned char>(bytes[bytes.size() - back]);
    if (byte >= 0xC0) {
      const qsizetype length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : 2;
      return length > back ? back : 0;
    }
    if (byte < 0x80) return 0;
  }
  return 0;
}

}  // namespace

bool IsKnownCodePage(int codePage) {
  const char* name = NameOf(codePage);
  return name && QStringDecoder(name).isValid();
}

QString DecodeCodePage(int codePage, QByteArrayView bytes) {
  if (IsAsciiSuperset(codePage) && IsAscii(bytes)) return QString::fromLatin1(bytes);
  static thread_local QHash<int, std::shared_ptr<QStringDecoder>> decoders;
  auto& decoder = decoders[codePage];
  if (!decoder) {
    const char* name = NameOf(codePage);
    decoder = std::make_shared<QStringDecoder>(name ? name : "windows-1252");
    if (!decoder->isValid()) decoder = std::make_shared<QStringDecoder>("windows-1252");
  }
  decoder->resetState();
  return decoder->decode(bytes);
}

qsizetype IncompleteTail(int codePage, QByteArrayView bytes) {
  if (codePage == kCodePageUtf8) return IncompleteUtf8Tail(bytes);
  bool afterLead = false;
  for (const char c : bytes) afterLead = !afterLead && IsLeadByte(codePage, static_cast<unsigned char>(c));
  return afterLead ? 1 : 0;
}

int CodePageOfCharset(int charset) {
  switch (charset) {
    case 0:
      return 1252;
    case 77:
      return 10000;
    case 78:
      return 10001;
    case 79:
      return 10003;
    case 80:
      return 10008;
    case 81:
      return 10002;
    case 83:
      return 1255;
    case 84:
      return 1256;
    case 85:
      return 10006;
    case 86:
      return 10081;
    case 87:
      return 10021;
    case 88:
      return 10029;
    case 89:
      return 10007;
    case 128:
      return 932;
    case 129:
      return 949;
    case 130:
      return 1361;
    case 134:
      return 936;
    case 136:
      return 950;
    case 161:
      return 1253;
    case 162:
      return 1254;
    case 163:
      return 1258;
    case 177:
    case 181:
      return 1255;
    case 178:
    case 179:
    case 180:
      return 1256;
    case 186:
      return 1257;
    case 204:
      return 1251;
    case 222:
      return 874;
    case 238:
      return 1250;
    case 254:
      return 437;
    case 255:
      return 850;
    default:
      return 0;
  }
}

}  // namespace snipdeck
