#pragma once

class QDialog;

namespace vasclip::forms {
class Screen;
}

namespace vasclip::windows {

// One for each screen of the table in screens.cpp: puts the widgets of the screen on an empty dialog.

void Layout_EntryScreen(QDialog& window, forms::Screen& screen); ///< the seven of databook/entry_forms.h
void Layout_frm_Calendar(QDialog& window, forms::Screen& screen);
void Layout_frm_SearchSQL(QDialog& window, forms::Screen& screen);
void Layout_frm_Comment(QDialog& window, forms::Screen& screen);
void Layout_frm_FKey(QDialog& window, forms::Screen& screen);
void Layout_frm_CopyPics(QDialog& window, forms::Screen& screen);
void Layout_frm_Archive(QDialog& window, forms::Screen& screen);
void Layout_frm_DelDate(QDialog& window, forms::Screen& screen);
void Layout_frm_Double(QDialog& window, forms::Screen& screen);
void Layout_frm_GenView(QDialog& window, forms::Screen& screen);
void Layout_frm_Grid(QDialog& window, forms::Screen& screen);
void Layout_frm_ChangeDB(QDialog& window, forms::Screen& screen);
void Layout_frm_Config(QDialog& window, forms::Screen& screen);
void Layout_frm_AttachCity(QDialog& window, forms::Screen& screen);
void Layout_frm_MassCity(QDialog& window, forms::Screen& screen);
void Layout_frm_CameraDir(QDialog& window, forms::Screen& screen);
void Layout_frm_Overwrite(QDialog& window, forms::Screen& screen);
void Layout_frm_Maintenance(QDialog& window, forms::Screen& screen);
void Layout_frm_Manual(QDialog& window, forms::Screen& screen);
void Layout_frm_MapPreview(QDialog& window, forms::Screen& screen);
void Layout_frm_MapData(QDialog& window, forms::Screen& screen);
void Layout_frm_Export(QDialog& window, forms::Screen& screen);
void Layout_frm_Import(QDialog& window, forms::Screen& screen);
void Layout_frm_ListColumns(QDialog& window, forms::Screen& screen);
void Layout_frm_Rehearse(QDialog& window, forms::Screen& screen);
void Layout_frm_StreetFind(QDialog& window, forms::Screen& screen);
void Layout_frm_Crystal(QDialog& window, forms::Screen& screen);
void Layout_frm_ReportPreview(QDialog& window, forms::Screen& screen);
void Layout_frm_Rename(QDialog& window, forms::Screen& screen);
void Layout_frm_SearchPics(QDialog& window, forms::Screen& screen);
void Layout_frm_Trash(QDialog& window, forms::Screen& screen);

} // namespace vasclip::windows
