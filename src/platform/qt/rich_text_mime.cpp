#include "platform/qt/rich_text_mime.h"

#include <QTextDocument>

namespace snipdeck {
namespace {

constexpr const char* kRtfTypes[] = {"text/rtf", "application/rtf", "text/richtext"};

bool IsRtfType(const QString& mimeType) {
  return std::any_of(std::begin(kRtfTypes), std::end(kRtfTypes),
                     [&](const char* type) { return mimeType == QLatin1String(type); });
}

// text/richtext also names a format of e-mail that has nothing to do with RTF.
QByteArray RtfOf(const QMimeData& source) {
  for (const char* type : kRtfTypes) {
    const QByteArray bytes = source.data(QLatin1String(type));
    if (bytes.startsWith("{\\rtf")) return bytes;
  }
  return {};
}

}  // namespace

QStringList RichTextMime::formats() const {
  QStringList names;
  for (const char* type : kRtfTypes) names << QLatin1String(type);
  return names << QStringLiteral("text/html") << QStringLiteral("text/plain");
}

QVariant RichTextMime::retrieveData(const QString& mimeType, QMetaType) const {
  if (IsRtfType(mimeType)) return m_text.Rtf();
  if (mimeType == QLatin1String("text/html")) return m_text.Document().toHtml();
  if (mimeType == QLatin1String("text/plain")) return m_text.PlainText();
  return {};
}

std::optional<RichText> RichTextFromMime(const QMimeData& source) {
  if (const QByteArray rtf = RtfOf(source); !rtf.isEmpty()) return RichText::FromRtf(rtf);
  if (source.hasHtml()) return RichText::FromHtml(source.html().toUtf8());
  if (source.hasText()) return RichText::FromPlainText(source.text());
  return std::nullopt;
}

bool OffersText(const QMimeData& source) {
  const QStringList names = source.formats();
  return source.hasHtml() || source.hasText() || std::any_of(names.begin(), names.end(), IsRtfType);
}

}  // namespace snipdeck
