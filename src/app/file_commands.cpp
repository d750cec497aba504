#include "app/file_commands.h"

namespace snipdeck {

namespace {

void NoteChanges(RichTextControl& control) {
  QObject::connect(&control, &QTextEdit::textChanged, &control, [&control] { control.SetModified(true); });
}

}  // namespace

FileCommands::FileCommands(BoxSet& boxes, Settings& settings, FileDialogs& dialogs, MessageBox& messages,
                           LongWork& longWork)
    : m_largeView(boxes.TXTextControl1(), *boxes.Frame1),
      m_cumulative(boxes.TXTextControl2(), *boxes.Frame2),
      m_contents(m_cumulative, dialogs, messages, settings.contentsFileName),
      m_export({m_largeView, m_cumulative, [&] { return MakeScratchText(messages, longWork); },
                [&boxes] { boxes.ShowNeedsLargeView(); }},
               {settings.contentsFileName, CumulativeFileName}, dialogs, messages) {
  for (RichTextControl* control : {&boxes.TXTextControl1(), &boxes.TXTextControl2()}) {
    control->SetMessages(&messages);
    control->SetLongWork(&longWork);
    NoteChanges(*control);
  }
}

}  // namespace snipdeck
