#pragma once

class QMenuBar;
class QWidget;

namespace snipdeck {

class frm_RTF_HTM;

/// Fills the editor's menu bar, in the grey scheme, and its tool strip from their tables.
void BuildEditorMenus(frm_RTF_HTM& window, QMenuBar& bar);
void BuildToolStrip(frm_RTF_HTM& window, QWidget& strip);

}  // namespace snipdeck
