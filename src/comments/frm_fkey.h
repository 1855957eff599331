#pragma once

#include "comments/comment_port.h"
#include "comments/comment_store.h"
#include "common/globals.h"
#include "store/data_source.h"

#include <QPointer>
#include <QTimer>

#include <functional>

namespace vasclip::comments {

class frm_Comment;

/// What the frame works with; all of it outlives the frame.
struct FKeyDesk
{
    forms::Ports ports;
    engine::Engine& engine;
    common::Globals& globals;
    std::function<QString()> currentKey; ///< CENTRALKEY of the comp that is being edited
};

/// The frame around the entry screens: six buttons that show what F3 to F8 hold for the field with the focus.
/// It opens with the first entry screen, holds the comment file open while one is, and closes by its timer.
class frm_FKey : public forms::Screen, public CommentPort
{
    Q_OBJECT
public:
    explicit frm_FKey(const FKeyDesk& desk);
    ~frm_FKey() override;

    forms::ControlArray<forms::Button> cmdComment;
    store::DataSource datComment, datDatabook;
    QTimer TimerFKEY;

    void EntryOpened(forms::Screen& screen, EntryKeys& keys) override;
    void FieldEntered(EntryKeys& keys, forms::TextBox& field, const QString& dataField) override;
    void FieldLeft() override;
    [[nodiscard]] KeyAnswer KeyDown(int keyCode, int shift, forms::TextBox& field,
                                    const QString& dataField) override;
    [[nodiscard]] forms::Screen& Frame() override { return *this; }

    /// The captions of the six buttons from a column; without one, or without the file, they rest.
    void LoadCommentKeyCaptions(store::DataSource& data, const QString& column);
    void cmdComment_Click(int index);
    /// Fill the dialogue from a field's library: the six keys; the free list with its first row selected.
    static void PreLoadFKeys(const Library& library, frm_Comment& dialog);
    static void PreLoadListControl(const Library& library, frm_Comment& dialog);
    /// When no entry screen is open any more the timer stops and the frame closes.
    void TimerFKEY_Timer();

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    [[nodiscard]] bool OpenComments();
    void BindDatabook();
    [[nodiscard]] bool FileReady();
    void RestButtons();
    [[nodiscard]] KeyAnswer Recall(int slot, forms::TextBox& field, const QString& column);
    void StoreOn(int slot, const forms::TextBox& field, const QString& column);
    void OpenLibrary(forms::TextBox& field, const QString& column);
    void SaveLibrary(const QString& column, const Library& opened, const QStringList& entries);
    void Trying(const std::function<void()>& step);

    FKeyDesk m_desk;
    QList<QPointer<forms::Screen>> m_entries;
    EntryKeys* m_keys = nullptr; ///< of the screen that m_field stands on
    QPointer<forms::TextBox> m_field;
};

/// The slot of a key: 0 to 5 recall F3 to F8, 6 to 11 (with Ctrl and Alt, or Ctrl and Shift, since many
/// desktops take the first for themselves) store, -1 is any other key. Alt alone belongs to the system.
[[nodiscard]] int SlotOfKey(int keyCode, int shift);

/// A phrase as the caption of a button: at most `width` characters, dots for what is left out, "&" doubled.
[[nodiscard]] QString FitCaption(const QString& phrase, int width);

} // namespace vasclip::comments
