#pragma once

#include <QColor>
#include <QHash>
#include <QStringList>

#include "richtext/rtf/rtf_output.h"

namespace snipdeck {

/// The tables in front of an RTF text. They fill while the text is written, and are written after it.
class RtfHeader {
 public:
  /// Number of a font in the font table.
  int Font(const QString& family, const QString& alternative = QString());
  /// Number of a colour in the colour table; 0 is the reader's own colour.
  int Colour(const QColor& colour);
  /// Number of a style in the style sheet.
  int ParagraphStyle(const QString& name);
  int CharacterStyle(const QString& name);

  void WriteTables(RtfOutput& out) const;

 private:
  struct Style {
    QString name;
    bool isParagraph;
  };
  int StyleNumber(const QString& name, bool isParagraph);

  QHash<QString, int> m_fontNumbers;
  QStringList m_fonts;
  QStringList m_alternatives;
  QHash<QRgb, int> m_colourNumbers;
  QList<QRgb> m_colours;
  QHash<QString, int> m_styleNumbers;
  QList<Style> m_styles;
};

}  // namespace snipdeck
