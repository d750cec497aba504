#pragma once

#include <functional>
#include <vector>

#include <QTimer>
#include <QWidget>

#include "clipformats/format_reading.h"

class QPlainTextEdit;
class QTreeWidget;

namespace snipdeck {

/// Lists every format that the clipboard holds: its number, its name, its size, and how long it took to read or why it
/// could not be read. The contents of the chosen one stand below, as text or as bytes. Formats are read one by one when
/// the list is opened, for five seconds in all; the rest of them when they are chosen.
class FormatList : public QWidget {
  Q_OBJECT

 public:
  /// `clipboard` gives the window's own instance.
  FormatList(ClipboardFunctions& functions, std::function<cCustomClipboard&()> clipboard, QWidget* parent);

  /// Lists what is there now and begins to read it.
  void Open(WindowHandle window);
  /// It waits for the owner of a format at this moment.
  bool IsReading() const { return m_isReading; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void Fill();
  QString WhyNone() const;
  void FitColumns();
  void ReadNext();
  void Read(std::size_t index);
  void ShowRow(std::size_t index);
  void ShowChosen();

  ClipboardFunctions& m_functions;
  std::function<cCustomClipboard&()> m_clipboard;
  WindowHandle m_window = 0;
  std::vector<FormatReading> m_formats;
  std::size_t m_next = 0;
  qint64 m_spent = 0;
  bool m_isReading = false;
  QTimer m_timer;
  QTreeWidget* m_list;
  QPlainTextEdit* m_contents;
};

}  // namespace snipdeck
