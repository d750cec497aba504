#pragma once

#include <QHash>
#include <QStringList>

#include "richtext/html/html_payload.h"

namespace snipdeck {

/// HTML that Qt's importer reads well and safely: no scripts, no comments, no islands of other markup, no addresses of
/// files or of the network, nesting and tables within limits, sizes in units that Qt knows.
struct CleanHtml {
  QString html;
  QHash<QString, QByteArray>
      pictures;  ///< content of the pictures that came inside the page, by the name it has in `html`
  QStringList warnings;
};

/// The copied part of a payload, inside the elements that surround it. Text without a size of its own has `basePoints`.
CleanHtml CleanUpHtml(const HtmlPayload& payload, double basePoints);

}  // namespace snipdeck
