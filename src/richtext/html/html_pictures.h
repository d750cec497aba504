#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

namespace snipdeck {

/// Takes the picture of a data: address into `pictures` and returns the name it is kept under, made from its content.
/// Empty for any other address, and for what is no picture or too large to show.
QString TakePicture(const QString& source, QHash<QString, QByteArray>& pictures);

/// The bytes of a data: address; null when it is none or cannot be decoded.
QByteArray DataUrlContent(const QString& url);

}  // namespace snipdeck
