#include "richtext/text/encoding_guess.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <uchardet/uchardet.h>
#include <unicode/ucsdet.h>

#include <QRegularExpression>
#include <QString>
#include <QStringDecoder>

#include "richtext/text/code_pages.h"

namespace snipdeck {
namespace {

constexpr qsizetype kDeclarationReach = 4096;
constexpr qsizetype kWideSample = 16 * 1024;
constexpr qsizetype kSample = 256 * 1024;
constexpr qsizetype kBeforeSample = 1024;
constexpr int kLongestCharacter = 4;  // bytes
constexpr int kCodePageShifted = 50220;
constexpr int kFewestForeign = 4;  // bytes above ASCII
constexpr int kFewestLatin = 3;
constexpr int kSureWestern = 40;  // of a hundred

enum class Script { Latin, Other };

/// A detector's name for an encoding. The pages of ISO have control characters at 0x80 to 0x9F, so that a text with
/// such bytes is in the page of Windows that is like it.
struct Encoding {
  const char* name;
  int codePage;
  int withControls;
  Script script;
};
// What is not here (western Europe, and pages in which hardly any text is written) counts as not found.
constexpr Encoding kEncodings[] = {
    {"BIG5", 950, 950, Script::Other},
    {"EUC-JP", 51932, 51932, Script::Other},
    {"EUC-KR", 949, 949, Script::Other},
    {"GB18030", 54936, 54936, Script::Other},
    {"IBM855", 855, 855, Script::Other},
    {"IBM866", 866, 866, Script::Other},
    {"ISO-8859-11", 874, 874, Script::Other},
    {"ISO-8859-13", 28603, 1257, Script::Latin},
    {"ISO-8859-16", 1250, 1250, Script::Latin},
    {"ISO-8859-2", 28592, 1250, Script::Latin},
    {"ISO-8859-5", 28595, 28595, Script::Other},
    {"ISO-8859-6", 28596, 1256, Script::Other},
    {"ISO-8859-7", 28597, 1253, Script::Other},
    {"ISO-8859-8", 28598, 1255, Script::Other},
    {"ISO-8859-9", 1254, 1254, Script::Latin},
    {"KOI8-R", 21866, 21866, Script::Other},
    {"MAC-CYRILLIC", 10007, 10007, Script::Other},
    {"SHIFT_JIS", 932, 932, Script::Other},
    {"TIS-620", 874, 874, Script::Other},
    {"UHC", 949, 949, Script::Other},
    {"WINDOWS-1250", 1250, 1250, Script::Latin},
    {"WINDOWS-1251", 1251, 1251, Script::Other},
    {"WINDOWS-1253", 1253, 1253, Script::Other},
    {"WINDOWS-1254", 1254, 1254, Script::Latin},
    {"WINDOWS-1255", 1255, 1255, Script::Other},
    {"WINDOWS-1256", 1256, 1256, Script::Other},
    {"WINDOWS-1257", 1257, 1257, Script::Latin},
};

bool IsHigh(char byte) {
  return static_cast<unsigned char>(byte) >= 0x80;
}

bool HasControls(QByteArrayView bytes) {
  return std::any_of(bytes.begin(), bytes.end(),
                     [](char byte) { return IsHigh(byte) && static_cast<unsigned char>(byte) < 0xA0; });
}

/// The part of a long text that tells the most: from a little before its first byte above ASCII.
QByteArrayView Sample(QByteArrayView bytes) {
  const auto first = std::find_if(bytes.begin(), bytes.end(), IsHigh);
  const qsizetype begin = std::max<qsizetype>(first - bytes.begin() - kBeforeSample, 0);
  return bytes.sliced(begin, std::min(kSample, bytes.size() - begin));
}

struct HighBytes {
  int count = 0;
  int runs = 0;
};

HighBytes CountHigh(QByteArrayView bytes) {
  HighBytes high;
  bool inRun = false;
  for (const char byte : bytes) {
    if (IsHigh(byte)) ++high.count;
    if (IsHigh(byte) && !inRun) ++high.runs;
    inRun = IsHigh(byte);
  }
  return high;
}

const Encoding* DetectedEncoding(QByteArrayView bytes) {
  const std::unique_ptr<uchardet, void (*)(uchardet*)> detector(uchardet_new(), uchardet_delete);
  if (uchardet_handle_data(detector.get(), bytes.data(), static_cast<std::size_t>(bytes.size())) != 0) return nullptr;
  uchardet_data_end(detector.get());
  const QByteArrayView name(uchardet_get_charset(detector.get()));
  const auto found = std::find_if(std::begin(kEncodings), std::end(kEncodings),
                                  [name](const Encoding& one) { return name == one.name; });
  return found == std::end(kEncodings) ? nullptr : found;
}

/// Whether the letters of a text in Latin script are surely those of western Europe: a second opinion, since words with
/// few accents look alike in the pages of many languages.
bool IsWestern(QByteArrayView bytes) {
  UErrorCode error = U_ZERO_ERROR;
  const std::unique_ptr<UCharsetDetector, void (*)(UCharsetDetector*)> detector(ucsdet_open(&error), ucsdet_close);
  ucsdet_setText(detector.get(), bytes.data(), static_cast<int32_t>(bytes.size()), &error);
  int32_t count = 0;
  const UCharsetMatch** const matches = ucsdet_detectAll(detector.get(), &count, &error);
  if (U_FAILURE(error)) return false;
  // The surest come first.
  for (int32_t i = 0; i < count; ++i) {
    const QByteArrayView name(ucsdet_getName(matches[i], &error));
    if (name == "ISO-8859-1" || name == "windows-1252") return ucsdet_getConfidence(matches[i], &error) >= kSureWestern;
    if (name.startsWith("ISO-8859-") || name.startsWith("windows-125")) return false;
  }
  return false;
}

/// Letters outside of ASCII stand alone in Latin script, and side by side in any other.
bool IsPlausible(Script script, QByteArrayView bytes) {
  const HighBytes high = CountHigh(bytes);
  if (script == Script::Other) return high.count >= kFewestForeign && 2 * high.count >= 3 * high.runs;
  return high.count >= kFewestLatin && !IsWestern(bytes);
}

bool IsClean(const QString& text) {
  return std::none_of(text.begin(), text.end(), [](QChar c) {
    return c == QChar::ReplacementCharacter || (c.unicode() >= 0x80 && c.unicode() < 0xA0);
  });
}

/// Neither a control character nor one that is not assigned.
bool IsOfText(QChar c) {
  return c.isPrint() || c.isSpace() || c.isSurrogate() || c.category() == QChar::Other_Format ||
         c.category() == QChar::Other_PrivateUse;
}

/// How many characters of a text in UTF-16 end lines or divide words; -1 when it holds what no text does. The last
/// character may be half of one.
int CountSpaces(QByteArrayView bytes, const char* codec) {
  QStringDecoder decoder(codec, QStringConverter::Flag::Stateless);
  const QString text = QString(decoder(bytes)).chopped(1);
  if (text.contains(QChar::ReplacementCharacter) || !std::all_of(text.begin(), text.end(), IsOfText)) return -1;
  return static_cast<int>(std::count_if(
      text.begin(), text.end(), [](QChar c) { return c == u' ' || c == u'\n' || c == u'\r' || c == QChar(0x3000); }));
}

/// Every character of UTF-32 has a zero in its highest byte and next to nothing in the one below.
bool IsUtf32(QByteArrayView bytes, qsizetype highest, qsizetype next) {
  for (qsizetype i = 0; i + 4 <= bytes.size(); i += 4) {
    if (bytes[i + highest] != 0 || static_cast<unsigned char>(bytes[i + next]) > 0x10) return false;
  }
  return bytes.size() >= 4;
}

}  // namespace

QByteArray DeclaredCharset(QByteArrayView bytes) {
  static const QRegularExpression kPattern(
      QStringLiteral("(?:charset\\s*=|<\\?xml[^>]*encoding\\s*=)\\s*[\"']?([\\w.:-]{2,40})"),
      QRegularExpression::CaseInsensitiveOption);
  const QString start = QString::fromLatin1(bytes.first(std::min(bytes.size(), kDeclarationReach)));
  return kPattern.match(start).captured(1).toLatin1().toLower();
}

bool IsShiftedByEscapes(QByteArrayView bytes) {
  return bytes.contains("\x1B$B") || bytes.contains("\x1B$@");
}

const char* GuessWideEncoding(QByteArrayView bytes) {
  const QByteArrayView sample = bytes.first(std::min(bytes.size(), kWideSample));
  if (!sample.contains('\0')) return nullptr;
  if (bytes.size() % 4 == 0 && IsUtf32(sample, 3, 2)) return "UTF-32LE";
  if (bytes.size() % 4 == 0 && IsUtf32(sample, 0, 1)) return "UTF-32BE";
  if (bytes.size() % 2 != 0) return nullptr;
  const int little = CountSpaces(sample, "UTF-16LE"), big = CountSpaces(sample, "UTF-16BE");
  if (little < 0 && big < 0) return nullptr;
  if (little != big) return little > big ? "UTF-16LE" : "UTF-16BE";
  // Without a single blank, zeros tell where the high bytes are.
  const auto zerosAt = [sample](qsizetype first) {
    int zeros = 0;
    for (qsizetype i = first; i < sample.size(); i += 2) zeros += sample[i] == 0;
    return zeros;
  };
  return zerosAt(1) >= zerosAt(0) ? "UTF-16LE" : "UTF-16BE";
}

int GuessCodePage(QByteArrayView bytes) {
  if (IsShiftedByEscapes(bytes)) return IsClean(DecodeCodePage(kCodePageShifted, bytes)) ? kCodePageShifted : 0;
  const QByteArrayView sample = Sample(bytes);
  const Encoding* const encoding = DetectedEncoding(sample);
  if (!encoding || !IsPlausible(encoding->script, sample)) return 0;
  const int codePage = HasControls(sample) ? encoding->withControls : encoding->codePage;
  QString text = DecodeCodePage(codePage, sample);
  if (sample.size() < bytes.size()) text.chop(kLongestCharacter);
  return IsClean(text) ? codePage : 0;
}

}  // namespace snipdeck
