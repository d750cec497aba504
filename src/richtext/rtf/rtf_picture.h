#pragma once

#include <vector>

#include <QByteArray>

#include "richtext/flow_text.h"
#include "richtext/rtf/rtf_destination.h"
#include "richtext/rtf/rtf_warnings.h"

namespace snipdeck {

class RtfParser;

/// What the stream says about a picture. Sizes are in twips unless noted.
struct RtfPictureInfo {
  enum class Type { Unknown, Png, Jpeg, Dib, Bitmap, Metafile, MacPicture };
  Type type = Type::Unknown;
  int width = 0;  ///< \picw: pixels of a bitmap, hundredths of a millimetre of a metafile.
  int height = 0;
  int goalWidth = 0;
  int goalHeight = 0;
  int cropLeft = 0;  ///< Cut off before the picture is scaled.
  int cropTop = 0;
  int cropRight = 0;
  int cropBottom = 0;
  int scaleX = 100;  ///< Percent
  int scaleY = 100;
  int bitsPerPixel = 1;  ///< Of a device-dependent bitmap.
  int bytesPerLine = 0;

  /// The part of a picture of `pixels` that is left to be shown; never empty.
  QRect ShownPart(QSize pixels) const;
  /// The size on the page in pixels, from `natural` (pixels of the part that is shown) where the stream does not say; at least one by one.
  QSizeF ShownSize(QSize natural) const;
};

/// All pictures of a text, as resources of the document that is being made. Equal pictures are kept once.
class RtfPictures {
 public:
  explicit RtfPictures(RtfWarnings& warnings) : m_warnings(warnings) {}

  /// The format of a picture; a grey field of its size where the data cannot be shown.
  QTextImageFormat Add(const RtfPictureInfo& info, const QByteArray& data);
  std::vector<FlowPicture> Take() { return std::move(m_pictures); }

 private:
  QImage Decode(const RtfPictureInfo& info, const QByteArray& data);

  RtfWarnings& m_warnings;
  std::vector<FlowPicture> m_pictures;
  qint64 m_pixelsLeft = 48'000'000;  ///< Of all pictures together, when decoded.
};

/// Collects the data of one picture.
class RtfPicture : public RtfDestination {
 public:
  explicit RtfPicture(RtfParser& parser) : m_parser(parser) {}
  bool Raw(QByteArrayView bytes) override;
  void Binary(QByteArrayView bytes) override;
  bool Word(std::string_view word, int value, bool hasValue) override;
  void Close() override;

 private:
  RtfParser& m_parser;
  RtfPictureInfo m_info;
  QByteArray m_data;
  int m_halfByte = -1;
};

}  // namespace snipdeck
