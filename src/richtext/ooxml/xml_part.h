#pragma once

#include <QXmlStreamReader>

namespace snipdeck {

/// Reads one part of an Office Open XML file. A part with a document type is refused, since such files have none and
/// entities are how small ones grow. Elements and attributes go by their local names, as the two editions of the format
/// have different namespaces.
class XmlPart : public QXmlStreamReader {
 public:
  explicit XmlPart(const QByteArray& content) : QXmlStreamReader(content) {}

  /// Goes to the root element; false when there is none.
  bool EnterRoot();
  bool Is(const char* name) const { return this->name() == QLatin1String(name); }
  /// An attribute of the current element; null when it does not have it.
  QString Value(const char* attribute = "val") const;
  /// An attribute that names a relationship.
  QString RelationshipId(const char* attribute = "id") const;
  /// A whole number, clamped to what a document may say (a million either way); `missing` when there is none.
  int Number(const char* attribute = "val", int missing = 0) const;
  /// A length in twips, which may come with a unit.
  int Twips(const char* attribute, int missing = 0) const;
  /// The value of an element that switches something on unless it says otherwise.
  bool IsOn(const char* attribute = "val") const;
  /// Which vocabulary the element is of: the last telling word of its namespace.
  bool IsMath() const { return namespaceUri().contains(QLatin1String("math")); }
};

}  // namespace snipdeck
