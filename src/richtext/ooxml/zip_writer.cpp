#include "richtext/ooxml/zip_writer.h"

#include <memory>

#include <zip.h>

namespace snipdeck {
namespace {

Failure CannotPack() {
  return {Failure::Kind::Other, QStringLiteral("The file's parts cannot be packed.")};
}

QByteArray Contents(zip_source_t* source) {
  QByteArray bytes;
  if (zip_source_open(source) != 0) return bytes;
  zip_stat_t info;
  zip_stat_init(&info);
  if (zip_source_stat(source, &info) == 0) {
    bytes.resize(static_cast<qsizetype>(info.size));
    if (zip_source_read(source, bytes.data(), info.size) != static_cast<zip_int64_t>(info.size)) bytes.clear();
  }
  zip_source_close(source);
  return bytes;
}

}  // namespace

Result<QByteArray> ZipWriter::Finish() const {
  constexpr time_t kSomeTime = 315532800;  // the first day that the format knows
  const std::unique_ptr<zip_source_t, void (*)(zip_source_t*)> source(zip_source_buffer_create(nullptr, 0, 0, nullptr),
                                                                      zip_source_free);
  if (!source) return CannotPack();
  zip_source_keep(source.get());
  zip_t* const archive = zip_open_from_source(source.get(), ZIP_TRUNCATE, nullptr);
  if (!archive) {
    zip_source_free(source.get());
    return CannotPack();
  }
  for (const Part& part : m_parts) {
    zip_source_t* const content = zip_source_buffer(archive, part.content.constData(),
                                                    static_cast<zip_uint64_t>(part.content.size()), 0);
    const zip_int64_t index = zip_file_add(archive, part.name.toUtf8().constData(), content, ZIP_FL_ENC_UTF_8);
    if (index < 0) {
      zip_source_free(content);
      zip_discard(archive);
      return CannotPack();
    }
    zip_file_set_mtime(archive, static_cast<zip_uint64_t>(index), kSomeTime, 0);
  }
  if (zip_close(archive) != 0) {
    zip_discard(archive);
    return CannotPack();
  }
  QByteArray bytes = Contents(source.get());
  if (bytes.isEmpty()) return CannotPack();
  return bytes;
}

}  // namespace snipdeck
