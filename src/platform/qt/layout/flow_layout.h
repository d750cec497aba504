#pragma once

#include <QAbstractTextDocumentLayout>
#include <QTextDocument>

#include "platform/qt/layout/paragraph_lines.h"

namespace snipdeck {

/// What layouts of our own for texts of paragraphs have in common. They draw paragraphs as Qt's layout does; tables and
/// frames they cannot draw.
class FlowLayout : public QAbstractTextDocumentLayout {
  Q_OBJECT

 public:
  explicit FlowLayout(QTextDocument* document);

  void draw(QPainter* painter, const PaintContext& context) override;
  QRectF frameBoundingRect(QTextFrame* frame) const override;

  /// The paragraph at a height in pixels; the first or the last one beyond the ends.
  virtual QTextBlock BlockAt(double y) const = 0;

 protected:
  TextColumn FindColumn() const;
  double Margin() const;

 private:
  int CaretWidth() const;

  /// Only there for the objects in texts that Qt's layout can draw: pictures.
  QTextDocument m_objects;
};

}  // namespace snipdeck
