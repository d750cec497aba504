// Any text part in a DOCX file must become a document or a refusal, within bounds; so must any bytes in place of the file.

#include "fuzz_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  snipdeck::ZipWriter zip;
  snipdeck::fuzz::AddParts(zip, bytes, {"word/document.xml", "word/styles.xml", "word/numbering.xml", "word/footnotes.xml"});
  zip.Add(QStringLiteral("word/_rels/document.xml.rels"), snipdeck::fuzz::Relationships({"styles", "numbering", "footnotes"}));
  snipdeck::fuzz::Read(zip.Finish().Value(), snipdeck::FileFormat::Docx);
  snipdeck::fuzz::Read(bytes, snipdeck::FileFormat::Docx);
  return 0;
}
