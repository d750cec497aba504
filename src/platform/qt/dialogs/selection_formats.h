#pragma once

#include <optional>

#include <QList>
#include <QTextBlock>
#include <QTextCharFormat>

namespace snipdeck {

class RichTextControl;

/// Every character format that occurs in the selection, once; without a selection the one that typing would have.
QList<QTextCharFormat> SelectedCharFormats(const RichTextControl& control);
/// The paragraphs that the selection touches; without a selection the one with the caret.
QList<QTextBlock> SelectedBlocks(const RichTextControl& control);

/// `common` keeps what it has only where `other` has the same.
template <typename T>
void KeepCommon(std::optional<T>& common, const std::optional<T>& other) {
  if (common != other) common.reset();
}

}  // namespace snipdeck
