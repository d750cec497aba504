#include "richtext/text/text_writer.h"

#include <QTextDocument>

#include "richtext/document_walker.h"
#include "richtext/format_properties.h"
#include "richtext/list_labels.h"

namespace snipdeck {
namespace {

class TextVisitor : public DocumentVisitor {
 public:
  TextVisitor(QString& text, bool withLabels) : m_text(text), m_withLabels(withLabels) {}

  void BeginBlock(const QTextBlock& block) override {
    if (m_separator) m_text += QLatin1Char('\n');
    m_separator = true;
    if (m_withLabels) Label(block);
  }

  void Run(QStringView text, const QTextCharFormat& format, int) override {
    if (format.boolProperty(kHiddenText)) return;
    for (const QChar character : text) {
      m_text += character == QChar::LineSeparator ? QLatin1Char('\n') : character;
    }
  }

  void BeginCell(const QTextTable&, const QTextTableCell& cell) override { StartCell(cell); }
  void CoveredCell(const QTextTable&, const QTextTableCell& cell) override { StartCell(cell); }
  void BeginRow(const QTextTable&, int) override {
    if (m_separator) m_text += QLatin1Char('\n');
    m_separator = false;
  }
  void EndRow(const QTextTable&, int) override { m_separator = true; }

 private:
  void StartCell(const QTextTableCell& cell) {
    if (cell.column() > 0) m_text += QLatin1Char('\t');
    m_separator = false;
  }

  void Label(const QTextBlock& block) {
    const QString label = ListLabel(block);
    if (!label.isEmpty()) m_text += label + QLatin1Char('\t');
  }

  QString& m_text;
  const bool m_withLabels;
  bool m_separator = false;
};

}  // namespace

QString WriteText(const QTextDocument& document, int begin, int end, bool withLabels) {
  QString text;
  text.reserve(end < 0 ? document.characterCount() : std::max(end - begin, 0));
  TextVisitor visitor(text, withLabels);
  WalkDocument(document, visitor, begin, end);
  return text;
}

}  // namespace snipdeck
