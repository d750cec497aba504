#include "richtext/document_file.h"

#include <algorithm>
#include <array>

#include <QTextDocument>

#include "platform/whole_file.h"
#include "richtext/document_flow.h"
#include "richtext/doc/office_converter.h"
#include "richtext/docx/docx_reader.h"
#include "richtext/docx/docx_writer.h"
#include "richtext/flow_text.h"
#include "richtext/html/html_reader.h"
#include "richtext/html/html_writer.h"
#include "richtext/pdf/pdf_reader.h"
#include "richtext/pdf/pdf_writer.h"
#include "richtext/rtf/rtf_reader.h"
#include "richtext/rtf/rtf_writer.h"
#include "richtext/text/text_decoder.h"
#include "richtext/text/text_writer.h"
#include "richtext/xlsx/xlsx_reader.h"
#include "richtext/xlsx/xlsx_writer.h"
#include "richtext/xml/xhtml.h"

namespace snipdeck {
namespace {

constexpr double kParsed = 0.8;  // of reading a page

Result<RichText> ReadText(const QByteArray& bytes, const FileProgress&) {
  return RichText::FromPlainText(DecodeText(bytes));
}

Failure Cancelled() {
  return {Failure::Kind::Refused, QString()};
}

// A flow goes into a control bit by bit.
Result<RichText> AsFlow(const RichText& page, const FileProgress& progress) {
  if (progress && !progress(kParsed)) return Cancelled();
  if (page.Flow() || !IsPlainFlow(page.Document())) return page;
  DocumentFlow flow(page.Document());
  while (flow.ReadPart()) {
  }
  return RichText::FromFlow(flow.Take(), page.Warnings());
}

Result<RichText> ReadHtmlFile(const QByteArray& bytes, const FileProgress& progress) {
  return AsFlow(RichText::FromHtml(bytes), progress);
}

// RTF begins with its name; the reader itself would show any file as an empty text.
Result<RichText> ReadRtfFile(const QByteArray& bytes, const FileProgress& progress) {
  const QByteArrayView start = QByteArrayView(bytes).first(std::min<qsizetype>(bytes.size(), 4096));
  if (!bytes.trimmed().isEmpty() && !start.contains("{\\rtf") && !start.contains("{\\urtf")) {
    return Failure{Failure::Kind::Malformed, QStringLiteral("The file is not RTF.")};
  }
  bool isCancelled = false;
  RtfContents contents = ReadRtf(bytes, ReadFor::Document, [&](double part) {
    isCancelled = progress && !progress(part);
    return !isCancelled;
  });
  if (isCancelled) return Cancelled();
  if (!contents.html.isEmpty()) return ReadHtmlFile(contents.html, progress);
  return RichText::FromFlow(std::move(contents.text), contents.warnings);
}

using FlowReader = Result<FlowText> (*)(const QByteArray& bytes, QStringList& warnings, const FileProgress& progress);

template <FlowReader Read>
Result<RichText> ReadFlow(const QByteArray& bytes, const FileProgress& progress) {
  QStringList warnings;
  Result<FlowText> text = Read(bytes, warnings, progress);
  if (!text) return text.Error();
  return RichText::FromFlow(std::move(text.Value()), warnings);
}

// The format of older word processors goes through the newer one.
/// The text of a Word file begins in its first sector, with a head that tells of encryption (bit 8 of the flags).
bool IsEncryptedDoc(const QByteArray& bytes) {
  constexpr qsizetype kHead = 512, kFlags = kHead + 10;
  constexpr QByteArrayView kHeadBegins("\xEC\xA5");
  return bytes.size() > kFlags + 1 && QByteArrayView(bytes).sliced(kHead).startsWith(kHeadBegins) &&
         (bytes[kFlags + 1] & 1) != 0;
}

Result<RichText> ReadDocFile(const QByteArray& bytes, const FileProgress& progress) {
  constexpr QByteArrayView kCompoundFile("\xD0\xCF\x11\xE0");
  if (!bytes.startsWith(kCompoundFile))
    return Failure{Failure::Kind::Malformed, QStringLiteral("The file is damaged, or not a Word document.")};
  if (IsEncryptedDoc(bytes))
    return Failure{Failure::Kind::Refused, QStringLiteral("The file is protected by a password.")};
  const Result<QByteArray> docx = ConvertWithOffice(bytes, QStringLiteral("doc"), QStringLiteral("docx"), progress);
  if (!docx) return docx.Error();
  return ReadFlow<ReadDocx>(docx.Value(), progress);
}

Result<QByteArray> WriteDocFile(const QTextDocument& document, const FileProgress& progress) {
  const Result<QByteArray> docx = WriteDocx(document, progress);
  if (!docx) return docx.Error();
  return ConvertWithOffice(docx.Value(), QStringLiteral("docx"), QStringLiteral("doc"), progress);
}

Result<RichText> ReadXmlFile(const QByteArray& bytes, const FileProgress& progress) {
  const Result<RichText> page = ReadXhtml(bytes);
  return page ? AsFlow(page.Value(), progress) : page;
}

Result<QByteArray> WriteXmlFile(const QTextDocument& document, const FileProgress&) {
  return WriteXhtml(document);
}

Result<QByteArray> WriteCssFile(const QTextDocument& document, const FileProgress&) {
  return WriteStyleSheet(document);
}

Result<QByteArray> WriteTextFile(const QTextDocument& document, const FileProgress&) {
  return WriteText(document).toUtf8();
}

Result<QByteArray> WriteHtmlFile(const QTextDocument& document, const FileProgress&) {
  return WriteHtml(document);
}

Result<QByteArray> WriteRtfFile(const QTextDocument& document, const FileProgress&) {
  return WriteRtf(document);
}

struct Codec {
  FileFormat format;
  Result<RichText> (*read)(const QByteArray& bytes, const FileProgress& progress);
  Result<QByteArray> (*write)(const QTextDocument& document, const FileProgress& progress);
};

constexpr std::array kCodecs = {
    Codec{FileFormat::PlainText, ReadText, WriteTextFile},  Codec{FileFormat::Html, ReadHtmlFile, WriteHtmlFile},
    Codec{FileFormat::Rtf, ReadRtfFile, WriteRtfFile},      Codec{FileFormat::Doc, ReadDocFile, WriteDocFile},
    Codec{FileFormat::Xml, ReadXmlFile, WriteXmlFile},      Codec{FileFormat::Css, ReadText, WriteCssFile},
    Codec{FileFormat::Pdf, ReadFlow<ReadPdf>, WritePdf},    Codec{FileFormat::Docx, ReadFlow<ReadDocx>, WriteDocx},
    Codec{FileFormat::Xlsx, ReadFlow<ReadXlsx>, WriteXlsx},
};

const Codec* FindCodec(FileFormat format) {
  const auto found =
      std::find_if(kCodecs.begin(), kCodecs.end(), [format](const Codec& codec) { return codec.format == format; });
  return found == kCodecs.end() ? nullptr : &*found;
}

Failure Unknown(FileFormat format) {
  return {Failure::Kind::Unsupported,
          QStringLiteral("Files of format %1 are not known.").arg(static_cast<int>(format))};
}

}  // namespace

Result<RichText> ReadDocumentBytes(const QByteArray& bytes, FileFormat format, const FileProgress& progress) {
  const Codec* const codec = FindCodec(format);
  return codec ? codec->read(bytes, progress) : Unknown(format);
}

Result<RichText> ReadDocumentFile(const QString& path, FileFormat format, const FileProgress& progress) {
  const Result<QByteArray> bytes = ReadWholeFile(path);
  if (!bytes) return bytes.Error();
  return ReadDocumentBytes(bytes.Value(), format, progress);
}

Result<QByteArray> WriteDocumentBytes(const QTextDocument& document, FileFormat format, const FileProgress& progress) {
  const Codec* const codec = FindCodec(format);
  return codec ? codec->write(document, progress) : Unknown(format);
}

Outcome WriteDocumentFile(const QTextDocument& document, const QString& path, FileFormat format,
                          const FileProgress& progress) {
  const Result<QByteArray> bytes = WriteDocumentBytes(document, format, progress);
  if (!bytes) return bytes.Error();
  return WriteWholeFile(path, bytes.Value());
}

}  // namespace snipdeck
