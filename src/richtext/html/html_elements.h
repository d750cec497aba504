#pragma once

#include <QString>

namespace snipdeck {

/// What becomes of an element when HTML is cleaned up.
struct HtmlElement {
  enum class Treatment {
    Keep,         ///< written, under the name `as`
    TagsOnly,     ///< its tags are left out, its contents stay
    DropContent,  ///< left out with all it holds
    Void,         ///< has neither contents nor an end tag and is left out
  };
  Treatment treatment = Treatment::TagsOnly;
  const char* as = "";
  bool isBlock = false;
};

HtmlElement ElementNamed(const QString& name);

/// Whether a start tag of `next` ends an open element `open` that lacks its end tag.
bool EndsByItself(const QString& open, const QString& next);

/// Elements whose end tags inside them do not reach out of them: a table's cell and its table.
bool IsFence(const QString& name);

}  // namespace snipdeck
