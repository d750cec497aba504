#include "platform/qt/qt_clipboard_writer.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace snipdeck {

Outcome QtClipboardWriter::EmptyClipboard() {
  QGuiApplication::clipboard()->clear();
  return Done{};
}

Outcome QtClipboardWriter::PutRichText(const TextOffer& offer) {
  auto* data = new QMimeData;
  for (const char* type : {"text/rtf", "application/rtf", "text/richtext"}) {
    if (!offer.rtf.isEmpty()) data->setData(QLatin1String(type), offer.rtf);
  }
  if (!offer.html.isEmpty()) data->setData(QStringLiteral("text/html"), offer.html);
  data->setText(offer.text);
  QGuiApplication::clipboard()->setMimeData(data);
  return Done{};
}

// Qt itself hands over to a clipboard manager when the application object is destroyed.
Outcome QtClipboardWriter::HandOverAtExit() {
  return Done{};
}

}  // namespace snipdeck
