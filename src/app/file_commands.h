#pragma once

#include "app/control_text.h"
#include "capture/box_set.h"
#include "platform/long_work.h"
#include "platform/settings.h"
#include "storage/contents_file.h"
#include "storage/text_export.h"

namespace snipdeck {

/// The main window's commands that load a file into the cumulative text and write texts to files, and the texts'
/// changed flags that go with them.
class FileCommands {
 public:
  /// All of them outlive this.
  FileCommands(BoxSet& boxes, Settings& settings, FileDialogs& dialogs, MessageBox& messages, LongWork& longWork);
  FileCommands(const FileCommands&) = delete;
  FileCommands& operator=(const FileCommands&) = delete;

  ContentsFile& Contents() { return m_contents; }
  TextExport& Export() { return m_export; }
  /// Runs `capture`: what it adds to the cumulative text is no change by the user.
  template <typename Capture>
  void WhileCapturing(Capture capture) {
    const bool modified = m_cumulative.Modified();
    capture();
    m_cumulative.SetModified(modified);
  }

 private:
  ControlText m_largeView;
  ControlText m_cumulative;
  QString CumulativeFileName = QStringLiteral("Snipdeck_CumulativeContents.rtf");
  ContentsFile m_contents;
  TextExport m_export;
};

}  // namespace snipdeck
