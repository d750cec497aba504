#pragma once

#include <cstdint>
#include <initializer_list>

#include <QGuiApplication>
#include <QTextBlock>
#include <QTextDocument>

#include "richtext/document_file.h"
#include "richtext/ooxml/zip_writer.h"

namespace snipdeck::fuzz {

/// Reads the bytes; what comes out must hold no character that a document may not.
inline void Read(const QByteArray& bytes, FileFormat format) {
  const Result<RichText> text = ReadDocumentBytes(bytes, format);
  if (!text) return;
  for (QTextBlock block = text.Value().Document().begin(); block.isValid(); block = block.next()) {
    for (const QChar c : block.text()) {
      if (c.unicode() < 0x20 && c != u'\t') abort();
    }
  }
}

/// Puts the pieces of an input, which `<?part?>` divides, into the parts with these names; without a mark, all parts
/// are the whole input.
inline void AddParts(ZipWriter& zip, const QByteArray& input, std::initializer_list<const char*> names) {
  static constexpr QByteArrayView kMark("\n<?part?>\n");
  qsizetype begin = 0;
  const bool isDivided = input.contains(kMark);
  for (const char* name : names) {
    const qsizetype mark = isDivided && begin <= input.size() ? input.indexOf(kMark, begin) : -1;
    const qsizetype end = mark < 0 ? input.size() : mark;
    zip.Add(QString::fromLatin1(name), begin <= end ? input.mid(begin, end - begin) : QByteArray());
    if (isDivided) begin = end + kMark.size();
  }
}

/// A part that relates a document to parts of these types and names; each type is its own id.
inline QByteArray Relationships(std::initializer_list<const char*> types) {
  QByteArray part = "<Relationships>";
  for (const char* type : types)
    part += QByteArray("<Relationship Id='") + type + "' Type='x/" + type + "' Target='" + type + ".xml'/>";
  return part + "</Relationships>";
}

}  // namespace snipdeck::fuzz

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static QGuiApplication application(*argc, *argv);
  return 0;
}
