#include "richtext/rtf/rtf_header.h"

namespace snipdeck {
namespace {

// A font or style name ends at a semicolon; one inside would end it early.
QString TableName(QString name) {
  return name.remove(QLatin1Char(';'));
}

void WriteFonts(RtfOutput& out, const QStringList& fonts, const QStringList& alternatives) {
  out.OpenGroup("fonttbl");
  for (int i = 0; i < fonts.size(); ++i) {
    out.OpenGroup("f");
    out.Raw(QByteArray::number(i));
    out.Word("fnil");
    out.Word("fcharset", 0);
    out.Text(TableName(fonts[i]));
    if (!alternatives[i].isEmpty()) {
      out.OpenOptional("falt");
      out.Text(TableName(alternatives[i]));
      out.CloseGroup();
    }
    out.Raw(";");
    out.CloseGroup();
  }
  out.CloseGroup();
  out.LineEnd();
}

void WriteColours(RtfOutput& out, const QList<QRgb>& colours) {
  out.OpenGroup("colortbl");
  out.Raw(";");
  for (const QRgb colour : colours) {
    out.Word("red", qRed(colour));
    out.Word("green", qGreen(colour));
    out.Word("blue", qBlue(colour));
    out.Raw(";");
  }
  out.CloseGroup();
  out.LineEnd();
}

}  // namespace

int RtfHeader::Font(const QString& family, const QString& alternative) {
  const auto known = m_fontNumbers.constFind(family);
  if (known != m_fontNumbers.cend()) return *known;
  const int number = static_cast<int>(m_fonts.size());
  m_fonts.append(family);
  m_alternatives.append(alternative);
  m_fontNumbers.insert(family, number);
  return number;
}

int RtfHeader::Colour(const QColor& colour) {
  const QRgb rgb = colour.rgb() | 0xFF000000u;
  const auto known = m_colourNumbers.constFind(rgb);
  if (known != m_colourNumbers.cend()) return *known;
  m_colours.append(rgb);
  const int number = static_cast<int>(m_colours.size());
  m_colourNumbers.insert(rgb, number);
  return number;
}

int RtfHeader::ParagraphStyle(const QString& name) {
  return StyleNumber(name, true);
}

int RtfHeader::CharacterStyle(const QString& name) {
  return StyleNumber(name, false);
}

int RtfHeader::StyleNumber(const QString& name, bool isParagraph) {
  const QString key = QLatin1Char(isParagraph ? 'p' : 'c') + name;
  const auto known = m_styleNumbers.constFind(key);
  if (known != m_styleNumbers.cend()) return *known;
  m_styles.append({name, isParagraph});
  const int number = static_cast<int>(m_styles.size());
  m_styleNumbers.insert(key, number);
  return number;
}

void RtfHeader::WriteTables(RtfOutput& out) const {
  WriteFonts(out, m_fonts, m_alternatives);
  WriteColours(out, m_colours);
  if (m_styles.isEmpty()) return;
  out.OpenGroup("stylesheet");
  out.Raw("{\\s0 Normal;}");
  for (int i = 0; i < m_styles.size(); ++i) {
    if (m_styles[i].isParagraph) {
      out.OpenGroup("s");
    } else {
      out.OpenOptional("cs");
    }
    out.Raw(QByteArray::number(i + 1) + ' ');
    out.Text(TableName(m_styles[i].name));
    out.Raw(";");
    out.CloseGroup();
  }
  out.CloseGroup();
  out.LineEnd();
}

}  // namespace snipdeck
