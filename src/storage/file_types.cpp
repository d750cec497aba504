#include "storage/file_types.h"

#include <array>

#include <QLatin1String>

namespace snipdeck {
namespace {

struct Ending {
  QLatin1String text;
  FileFormat format;
};

template <std::size_t count>
FileFormat FormatByEnding(QStringView name, const std::array<Ending, count>& endings) {
  for (const Ending& ending : endings) {
    if (name.endsWith(ending.text, Qt::CaseInsensitive)) return ending.format;
  }
  return FileFormat::PlainText;
}

constexpr std::array kLoadEndings = {
    Ending{QLatin1String(".RTF"), FileFormat::Rtf},   Ending{QLatin1String(".DOC"), FileFormat::Doc},
    Ending{QLatin1String(".DOCX"), FileFormat::Docx}, Ending{QLatin1String(".HTML"), FileFormat::Html},
    Ending{QLatin1String(".HTM"), FileFormat::Html},
};

constexpr std::array kServerPageEndings = {
    Ending{QLatin1String(".ASP"), FileFormat::Html},
    Ending{QLatin1String(".CGI"), FileFormat::Html},
};

constexpr std::array kSaveEndings = {
    Ending{QLatin1String("RTF"), FileFormat::Rtf},   Ending{QLatin1String("HTM"), FileFormat::Html},
    Ending{QLatin1String("HTML"), FileFormat::Html}, Ending{QLatin1String("DOC"), FileFormat::Doc},
    Ending{QLatin1String("XML"), FileFormat::Xml},   Ending{QLatin1String("CSS"), FileFormat::Css},
    Ending{QLatin1String("PDF"), FileFormat::Pdf},   Ending{QLatin1String("DOCX"), FileFormat::Docx},
    Ending{QLatin1String("XLSX"), FileFormat::Xlsx},
};

}  // namespace

FileFormat LoadFormatForName(QStringView name, bool wide) {
  const FileFormat format = FormatByEnding(name, kLoadEndings);
  return format == FileFormat::PlainText && wide ? FormatByEnding(name, kServerPageEndings) : format;
}

FileFormat SaveFormatForName(QStringView name) {
  return FormatByEnding(name, kSaveEndings);
}

}  // namespace snipdeck
