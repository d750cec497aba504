// Any part of an XLSX file must become a document or a refusal, within bounds; so must any bytes in place of the file.

#include "fuzz_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  snipdeck::ZipWriter zip;
  zip.Add(QStringLiteral("xl/workbook.xml"),
          "<workbook xmlns:r='http://schemas.openxmlformats.org/officeDocument/2006/relationships'><sheets>"
          "<sheet name='a' r:id='sheet1'/></sheets></workbook>");
  snipdeck::fuzz::AddParts(zip, bytes, {"xl/sheet1.xml", "xl/styles.xml", "xl/sharedStrings.xml"});
  zip.Add(QStringLiteral("xl/_rels/workbook.xml.rels"), snipdeck::fuzz::Relationships({"sheet1", "styles", "sharedStrings"}));
  snipdeck::fuzz::Read(zip.Finish().Value(), snipdeck::FileFormat::Xlsx);
  snipdeck::fuzz::Read(bytes, snipdeck::FileFormat::Xlsx);
  return 0;
}
