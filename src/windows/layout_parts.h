#pragma once

#include <QSize>
#include <QStringList>

class QCheckBox;
class QDialog;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QListView;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QToolButton;
class QVBoxLayout;
class QWidget;

namespace vasclip::windows {

class PictureView;

// Pieces that windows have in common.

/// Dresses a window that is built but not shown yet: before that its size hints are those of bare widgets.
void PolishAll(const QWidget& window);

/// How large a window may be on its screen, with its frame. A platform without a display bounds nothing, so that
/// pictures are whole.
[[nodiscard]] QSize RoomFor(const QWidget& window);

/// A button that Return elsewhere does not press.
[[nodiscard]] QPushButton* MakeButton(QDialog& window, const QString& name);
[[nodiscard]] QCheckBox* MakeCheck(QWidget& parent, const QString& name);
[[nodiscard]] QRadioButton* MakeOption(QWidget& parent, const QString& name);
/// Buttons beside each other, at the left.
[[nodiscard]] QHBoxLayout* MakeButtonRow(QDialog& window, const QStringList& names);
/// A picture to click on; the keys have a button with words beside it.
[[nodiscard]] QToolButton* MakeIconButton(QDialog& window, const QString& name, const QString& icon);
/// A label of a screen's control. @param role  "title", "quiet" or ""
[[nodiscard]] QLabel* MakeLabel(QWidget& window, const QString& name, const char* role = "");
/// Words of the window's own. @param buddy  where the access key leads; may be nullptr
[[nodiscard]] QLabel* MakeWords(QDialog& window, const QString& text, const char* role,
                                QWidget* buddy = nullptr);
[[nodiscard]] QListView* MakeList(QDialog& window, const QString& name, const QString& accessibleName);
[[nodiscard]] PictureView* MakePicture(QDialog& window, const QString& name, const QString& emptyText);
/// A gauge that is there while something goes on.
[[nodiscard]] QProgressBar* MakeGauge(QDialog& window, const QString& name);
/// A drive box over a directory list, as photos::DirLists fills them.
[[nodiscard]] QVBoxLayout* MakeFolders(QDialog& window, const QString& driveName,
                                       const QString& directoryName);
/// The rows of a window with its margins.
[[nodiscard]] QVBoxLayout* MakeRows(QDialog& window);
/// The last of them: the message, which takes what the buttons to come leave.
[[nodiscard]] QHBoxLayout* MakeFoot(QDialog& window);

/// The words about a box's text and the button that brings the text back; both are there while there is something to
/// say. @param box  its name, "txtSaleDate"
[[nodiscard]] QHBoxLayout* MakeNote(QWidget& parent, const QString& box);

/// A grid of captions and their boxes.
[[nodiscard]] QGridLayout* MakeFields();
/// A row of it. The caption's access key leads to the box.
void AddField(QGridLayout& fields, const QString& caption, const QString& name, QWidget& parent);

/// The list of cities with the buttons that keep it.
QVBoxLayout* MakeLocations(QDialog& window);

} // namespace vasclip::windows
