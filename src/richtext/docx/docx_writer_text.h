#pragma once

#include "richtext/ooxml/xml_out.h"

namespace snipdeck {

/// The characters of a run, inside of its element. Those for which the format has elements stand outside of the text.
void WriteRunText(XmlOut& out, QStringView text);

/// A part of the package that holds the text of a page's header ("w:hdr") or footer ("w:ftr"), paragraphs parted by "\n".
QByteArray PageTextPart(const char* root, const QString& text);

}  // namespace snipdeck
