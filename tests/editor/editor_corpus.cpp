/// editor_corpus FOLDER FILE...: opens documents in the editor, saves each under its name in FOLDER, opens that and compares
/// the two, run by run; and looks whether the editor shows the page that a document names. One line a document, and the
/// sums at the end. Run by hand, with QT_QPA_PLATFORM=offscreen.

#include <cstdio>

#include <QApplication>
#include <QTextFrame>

#include "editor/editor_stage.h"
#include "richtext/document_compare.h"
#include "richtext/rich_text.h"

using namespace snipdeck;

namespace {

/// Saves under the name that it was told last.
class NamedFile : public FileDialogs {
 public:
  QString OpenFile(const FileRequest&) override { return name; }
  QString SaveFile(const FileRequest&) override { return name; }
  QString BrowseForFolder(const QString&, const QString&) override { return {}; }
  QString name;
};

class CountedMessages : public MessageBox {
 public:
  MessageAnswer Show(const Message&) override {
    ++shown;
    return MessageAnswer::Ok;
  }
  void Beep() override {}
  int shown = 0;
};

struct Editor : EditorWorld {
  NamedFile file;
  CountedMessages told;
  frm_RTF_HTM window{{{file, told, question, notice, longWork}, printer, clipboard, programs, settings, screen, main}, nullptr};

  RichTextControl& Text() { return window.TextControl(); }
  /// False where the user is told that it cannot be done.
  bool Open(const QString& path) {
    told.shown = 0;
    window.Document().Start(OpenMode::File, path);
    return told.shown == 0;
  }
  bool SaveAs(const QString& path) {
    told.shown = 0;
    file.name = path;
    window.Document().SaveAs();
    return told.shown == 0;
  }
};

struct Sums {
  int same = 0;
  int different = 0;
  int unread = 0;
  int unsaved = 0;
  int withPage = 0;
  int otherPage = 0;
};

/// Whether the file names a page, and whether the editor shows another.
void ComparePage(Editor& editor, Sums& sums) {
  const PageGeometry page = editor.Text().Page();
  const int shown[] = {page.width, page.height, page.left, page.top, page.right, page.bottom};
  bool names = false;
  bool differs = false;
  for (int i = 0; i < 6; ++i) {
    const int named = editor.Text().LoadSaveAttribute(i);
    names |= named > 0;
    differs |= named > 0 && named != shown[i];
  }
  sums.withPage += names;
  sums.otherPage += differs;
  if (differs) std::printf("OTHER PAGE ");
}

QString Told(const QString& text) {
  return text.left(300).simplified();
}

void Compare(Editor& editor, const QString& path, const QString& target, Sums& sums) {
  if (!editor.Open(path)) {
    ++sums.unread;
    return void(std::printf("NOT READ"));
  }
  ComparePage(editor, sums);
  const RichText before = RichText::FromDocument(*editor.Text().document());
  const PageGeometry page = editor.Text().Page();
  if (!editor.SaveAs(target) || !editor.Open(target)) {
    ++sums.unsaved;
    return void(std::printf("NOT SAVED"));
  }
  QString difference = test::FirstDifference(before.Document(), *editor.Text().document());
  if (difference.isEmpty() && page != editor.Text().Page()) difference = QStringLiteral("another page");
  ++(difference.isEmpty() ? sums.same : sums.different);
  std::printf("%s %s", difference.isEmpty() ? "same" : "DIFFERENT", qPrintable(Told(difference)));
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  Editor editor;
  editor.window.show();
  Sums sums;
  const QDir folder(QString::fromLocal8Bit(argc > 1 ? argv[1] : "."));
  for (int i = 2; i < argc; ++i) {
    const QString path = QString::fromLocal8Bit(argv[i]);
    std::printf("%s: ", argv[i]);
    Compare(editor, path, folder.filePath(QStringLiteral("%1-%2").arg(i).arg(QFileInfo(path).fileName())), sums);
    std::printf("\n");
    std::fflush(stdout);
  }
  std::printf("%d the same, %d different, %d not read, %d not saved; %d with a page of their own, %d of them shown with another\n",
              sums.same, sums.different, sums.unread, sums.unsaved, sums.withPage, sums.otherPage);
}
