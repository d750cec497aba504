#pragma once

#include <QMimeData>

#include "platform/qt/rich_text_control.h"

namespace snipdeck {

/// A field of plain text: what is pasted loses its formats, and what is copied has none.
class PlainTextField : public RichTextControl {
 public:
  explicit PlainTextField(QWidget* parent) : RichTextControl(parent) { setAcceptRichText(false); }

 protected:
  QMimeData* createMimeDataFromSelection() const override {
    auto* copied = new QMimeData;
    copied->setText(SelText());
    return copied;
  }
  void insertFromMimeData(const QMimeData* source) override { SetSelText(source->text()); }
};

}  // namespace snipdeck
