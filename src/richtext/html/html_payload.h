#pragma once

#include <QByteArrayView>
#include <QString>

namespace snipdeck {

/// HTML as text, and the part of it that was copied: characters [begin, end). The rest is the copied part's
/// surroundings.
struct HtmlPayload {
  QString html;
  qsizetype begin = 0;
  qsizetype end = 0;
  QString source;  ///< The address of the page it was copied from; empty when unknown.
};

/// Decodes the bytes (by byte order mark, clipboard header or meta element; else UTF-8 when they are that; else
/// windows-1252) and finds the copied part: between the comments that mark it, else where the header says, else the
/// whole.
HtmlPayload ReadHtmlPayload(QByteArrayView bytes);

}  // namespace snipdeck
