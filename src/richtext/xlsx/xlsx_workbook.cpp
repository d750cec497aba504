#include "richtext/xlsx/xlsx_workbook.h"

#include <QHash>

#include "richtext/text/text_decoder.h"
#include "richtext/xlsx/number_format.h"

namespace snipdeck {
namespace {

constexpr qsizetype kMostTexts = 2'000'000;
constexpr std::size_t kMostSheets = 1000;
constexpr qsizetype kMostLooks = 65'536;

}  // namespace

QString ReadSheetText(XmlPart& xml) {
  QString text;
  while (xml.readNextStartElement()) {
    if (xml.Is("t")) {
      text += xml.readElementText(QXmlStreamReader::SkipChildElements);
    } else if (xml.Is("r")) {
      text += ReadSheetText(xml);
    } else {
      xml.skipCurrentElement();
    }
  }
  return CleanText(text);
}

void XlsxWorkbook::ReadWorkbook(const QByteArray& part) {
  XmlPart xml(part);
  if (!xml.EnterRoot()) return;
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement) continue;
    if (xml.Is("workbookPr")) m_since1904 = !xml.Value("date1904").isEmpty() && xml.IsOn("date1904");
    const bool isShown = xml.Is("sheet") && !xml.Value("state").contains(QLatin1String("idden"));
    if (isShown && m_sheets.size() < kMostSheets) m_sheets.push_back({xml.Value("name"), xml.RelationshipId()});
  }
}

void XlsxWorkbook::ReadTexts(const QByteArray& part) {
  XmlPart xml(part);
  if (!xml.EnterRoot()) return;
  while (xml.readNextStartElement() && m_texts.size() < kMostTexts) m_texts.append(ReadSheetText(xml));
}

void XlsxWorkbook::ReadStyles(const QByteArray& part) {
  XmlPart xml(part);
  if (!xml.EnterRoot()) return;
  QHash<int, QString> formats;
  while (xml.readNextStartElement()) {
    if (xml.Is("numFmts")) {
      while (xml.readNextStartElement()) {
        formats.insert(xml.Number("numFmtId"), xml.Value("formatCode"));
        xml.skipCurrentElement();
      }
    } else if (xml.Is("fonts")) {
      ReadFonts(xml);
    } else if (xml.Is("cellXfs")) {
      ReadLooks(xml, formats);
    } else {
      xml.skipCurrentElement();
    }
  }
}

void XlsxWorkbook::ReadFonts(XmlPart& xml) {
  while (xml.readNextStartElement() && m_fonts.size() < kMostLooks) {
    Look font;
    while (xml.readNextStartElement()) {
      if (xml.Is("b")) font.bold = xml.IsOn();
      if (xml.Is("i")) font.italic = xml.IsOn();
      xml.skipCurrentElement();
    }
    m_fonts.append(font);
  }
}

void XlsxWorkbook::ReadLooks(XmlPart& xml, const QHash<int, QString>& formats) {
  while (xml.readNextStartElement() && m_looks.size() < kMostLooks) {
    Look look = m_fonts.value(xml.Number("fontId"));
    const int number = xml.Number("numFmtId");
    look.numberFormat = formats.value(number, BuiltInFormat(number));
    m_looks.append(look);
    xml.skipCurrentElement();
  }
}

}  // namespace snipdeck
