#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

namespace vasclip::conduit::dde {

/// A name in the system's table that all programs share, as often as it is counted here.
class Atom
{
public:
    Atom() = default;
    /// @throws Failure (Why::Refused) if the table has no room, or would give another name back
    explicit Atom(const std::u16string& name);
    ~Atom() { Drop(); }
    Atom(Atom&& other) noexcept;
    Atom& operator=(Atom&& other) noexcept;
    Atom(const Atom&) = delete;
    Atom& operator=(const Atom&) = delete;

    [[nodiscard]] ATOM Get() const { return m_atom; }
    [[nodiscard]] const std::u16string& Name() const { return m_name; }
    /// Counted once more, for a message whose receiver drops it.
    [[nodiscard]] ATOM ForMessage() const;
    /// For a message whose answer brings it back (`TakeBack`); until then it is the receiver's to drop.
    [[nodiscard]] ATOM Lend();
    void TakeBack() { m_lent = false; }
    [[nodiscard]] bool Lent() const { return m_lent; }

private:
    void Drop();
    std::u16string m_name;
    ATOM m_atom = 0;
    bool m_lent = false;
};

/// "" for 0 and for what is no name.
[[nodiscard]] std::u16string NameOfAtom(ATOM atom);
/// Drops what came with a message. Values that are no names are left alone.
void DropAtom(UINT_PTR atom);

/// A head and bytes in memory that can be handed to another program; a zero stands behind them.
/// @throws Failure (Why::Refused) when there is no memory
[[nodiscard]] HGLOBAL Share(const void* head, std::size_t headSize, std::string_view bytes, bool zero = true);

/// What came in such memory: the head's 32 bits, and the bytes up to the first zero or the end of the memory.
struct SharedText
{
    WORD flags = 0;
    WORD format = 0;
    std::string bytes;
};
/// @return nullopt if it is too small to have a head
[[nodiscard]] std::optional<SharedText> ReadShared(HGLOBAL memory);
/// The same without a head: a command.
[[nodiscard]] std::string ReadCommand(HGLOBAL memory);

/// The bits of a head and of an acknowledgement, as dde.h lays them out.
inline constexpr WORD kAckRequested = 0x8000, kReleased = 0x2000, kResponse = 0x1000;
inline constexpr WORD kAccepted = 0x8000, kBusy = 0x4000, kCodeMask = 0x00ff;

/// A hidden window that messages come to, of the plain kind, so that commands travel in the code page and not in UTF-16.
/// @param parent  HWND_MESSAGE, or null for one that others find on the desktop
/// @param owner   is what the window's user data (GWLP_USERDATA) points to
/// @throws Failure (Why::NoAnswer) if the system gives none
[[nodiscard]] HWND MakeWindow(const char* kind, WNDPROC procedure, HWND parent, void* owner);

/// ", which the system explains by error 5"
[[nodiscard]] std::string SystemReason(DWORD error);

} // namespace vasclip::conduit::dde
