#pragma once

#include <QList>
#include <QString>

namespace snipdeck {

/// A declaration that a document can show, as a style sheet has it, in lower case but for names of fonts.
struct CssDeclaration {
  QString property;
  QString value;
};

/// What of an element's style its contents go by.
struct TextStyle {
  enum class Blanks { Collapse, KeepLines, Keep };
  enum class Display { AsNamed, Block, None };
  double basePoints = 12;  ///< The size of text that has none of its own.
  double points = 12;
  bool isSized = false;  ///< Whether the text has a size of its own, be it its own or inherited.
  Blanks blanks = Blanks::Collapse;
  Display display = Display::AsNamed;  ///< The element's own, which nothing inherits.
};

/// The declarations in `css`; what a document cannot show is left out.
QList<CssDeclaration> ParseDeclarations(QStringView css);

/// Adds declarations that win over those of the same property before them.
void Override(QList<CssDeclaration>& declarations, const QList<CssDeclaration>& by);

/// The declarations in the form that Qt reads: lengths in pixels, font sizes in points. What names a file, what only an
/// office program understands and what is out of any sensible range is left out. `style` is what surrounds the element,
/// and then the element's. A size that is what it would be without saying so is not written.
QString FilterDeclarations(const QList<CssDeclaration>& declarations, TextStyle& style);

}  // namespace snipdeck
