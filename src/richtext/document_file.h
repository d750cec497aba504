#pragma once

#include <functional>

#include <QByteArrayView>
#include <QString>

#include "platform/result.h"
#include "richtext/file_format.h"
#include "richtext/rich_text.h"

class QTextDocument;

namespace snipdeck {

/// How a long reading or writing tells how far it is, from 0 to 1, and learns whether to go on: false cancels it. It is
/// called on the thread that reads or writes. An empty one never cancels.
using FileProgress = std::function<bool(double part)>;

/// Whether something failed because it was cancelled, which needs no report.
inline bool IsCancelled(const Failure& failure) {
  return failure.kind == Failure::Kind::Refused && failure.text.isEmpty();
}

/// Reads the file at `path` in the given format, whatever its contents are. The text knows its page size and margins
/// where the file says them. A failure has the platform's words where the file could not be read, else ours; a missing
/// file fails with Failure::Kind::NotFound, a cancelled reading with Refused and no text. May run on any thread: the text belongs to
/// the application's thread.
Result<RichText> ReadDocumentFile(const QString& path, FileFormat format, const FileProgress& progress = {});

/// The same for the bytes of a file.
Result<RichText> ReadDocumentBytes(const QByteArray& bytes, FileFormat format, const FileProgress& progress = {});

/// Writes a text with its page size and margins, and replaces the file at `path` as a whole: a failure leaves the old
/// file as it was. The document must not change meanwhile.
Outcome WriteDocumentFile(const QTextDocument& document, const QString& path, FileFormat format,
                          const FileProgress& progress = {});

/// The same, as the bytes of a file.
Result<QByteArray> WriteDocumentBytes(const QTextDocument& document, FileFormat format,
                                      const FileProgress& progress = {});

}  // namespace snipdeck
