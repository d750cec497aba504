#pragma once

#include <QTextBlock>
#include <QTextCharFormat>

#include "richtext/docx/docx_writer_lists.h"
#include "richtext/docx/docx_writer_styles.h"
#include "richtext/ooxml/xml_out.h"

namespace snipdeck {

inline constexpr char kWordNamespace[] = "http://schemas.openxmlformats.org/wordprocessingml/2006/main";

/// Fonts have one name for all scripts. `fonts` and `size` are elements with their own places among the others.
void WriteFont(XmlOut& out, const QTextCharFormat& format, const QFont& defaults);
void WriteSize(XmlOut& out, const QTextCharFormat& format, const QFont& defaults);
void WriteFontAndSize(XmlOut& out, const QTextCharFormat& format, const QFont& defaults);

/// The element of the properties of a run.
void WriteRunProperties(XmlOut& out, const QTextCharFormat& format, const QFont& defaults, DocxWriterStyles& styles);

/// The element of the properties of a paragraph. `indentWidth` is the width of an indent step in pixels.
void WriteParagraphProperties(XmlOut& out, const QTextBlock& block, const QFont& defaults, double indentWidth,
                              DocxWriterStyles& styles, DocxWriterLists& lists);

/// A background as shading, where there is one.
void WriteShading(XmlOut& out, const QBrush& background);

}  // namespace snipdeck
