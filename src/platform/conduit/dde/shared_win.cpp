#include "platform/conduit/dde/shared_win.h"

#include "platform/conduit/dde/failure.h"
#include "platform/conduit/dde/limits.h"

#include <cstring>
#include <utility>

namespace vasclip::conduit::dde {

namespace {

constexpr UINT_PTR kFirstName = 0xC000; // below it an atom is a number and is not counted

ATOM Add(const std::u16string& name)
{
    return GlobalAddAtomW(reinterpret_cast<const wchar_t*>(name.c_str()));
}

} // namespace

Atom::Atom(const std::u16string& name)
    : m_name(name)
    , m_atom(Add(name))
{
    if (m_atom == 0)
        throw Failure(Why::Refused, "The system has no room for the name " + Quoted(name) + SystemReason(GetLastError()));
    // The table keeps a name in the case in which it came first; "#007" it takes for the number 7.
    if (m_atom >= kFirstName)
        return;
    if (const std::u16string kept = NameOfAtom(m_atom); kept != name)
        throw Failure(Why::Refused, "The exchange takes the name " + Quoted(name) + " for the number " + Quoted(kept) +
                                        "; nothing was sent");
}

Atom::Atom(Atom&& other) noexcept
    : m_name(std::move(other.m_name))
    , m_atom(std::exchange(other.m_atom, ATOM{0}))
    , m_lent(std::exchange(other.m_lent, false))
{}

Atom& Atom::operator=(Atom&& other) noexcept
{
    if (this != &other) {
        Drop();
        m_name = std::move(other.m_name);
        m_atom = std::exchange(other.m_atom, ATOM{0});
        m_lent = std::exchange(other.m_lent, false);
    }
    return *this;
}

ATOM Atom::ForMessage() const
{
    return Add(m_name);
}

ATOM Atom::Lend()
{
    m_lent = true;
    return m_atom;
}

void Atom::Drop()
{
    const ATOM atom = std::exchange(m_atom, ATOM{0});
    if (!m_lent)
        DropAtom(atom);
}

std::u16string NameOfAtom(ATOM atom)
{
    wchar_t name[256];
    const UINT length = atom == 0 ? 0 : GlobalGetAtomNameW(atom, name, 256);
    return {reinterpret_cast<const char16_t*>(name), length};
}

void DropAtom(UINT_PTR atom)
{
    if (atom >= kFirstName && atom <= 0xFFFF)
        GlobalDeleteAtom(static_cast<ATOM>(atom));
}

HGLOBAL Share(const void* head, std::size_t headSize, std::string_view bytes, bool zero)
{
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_DDESHARE, headSize + bytes.size() + (zero ? 1 : 0));
    auto* at = memory ? static_cast<char*>(GlobalLock(memory)) : nullptr;
    if (at == nullptr) {
        if (memory)
            GlobalFree(memory);
        throw Failure(Why::Refused, "There is no memory for " + std::to_string(bytes.size()) + " bytes; nothing was sent");
    }
    if (headSize > 0)
        std::memcpy(at, head, headSize);
    std::memcpy(at + headSize, bytes.data(), bytes.size());
    if (zero)
        at[headSize + bytes.size()] = '\0';
    GlobalUnlock(memory);
    return memory;
}

namespace {

std::string UpToZero(const char* text, std::size_t size)
{
    return {text, strnlen(text, size)};
}

} // namespace

std::optional<SharedText> ReadShared(HGLOBAL memory)
{
    constexpr std::size_t kHead = 2 * sizeof(WORD);
    const std::size_t size = GlobalSize(memory);
    const auto* at = size < kHead ? nullptr : static_cast<const char*>(GlobalLock(memory));
    if (at == nullptr)
        return std::nullopt;
    SharedText text;
    std::memcpy(&text.flags, at, sizeof text.flags);
    std::memcpy(&text.format, at + sizeof text.flags, sizeof text.format);
    text.bytes = UpToZero(at + kHead, size - kHead);
    GlobalUnlock(memory);
    return text;
}

std::string ReadCommand(HGLOBAL memory)
{
    const std::size_t size = GlobalSize(memory);
    const auto* at = size == 0 ? nullptr : static_cast<const char*>(GlobalLock(memory));
    if (at == nullptr)
        return {};
    std::string command = UpToZero(at, size);
    GlobalUnlock(memory);
    return command;
}

HWND MakeWindow(const char* kind, WNDPROC procedure, HWND parent, void* owner)
{
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    WNDCLASSA description{};
    description.lpfnWndProc = procedure;
    description.hInstance = instance;
    description.lpszClassName = kind;
    RegisterClassA(&description); // fails from the second time on
    const HWND window = CreateWindowExA(WS_EX_TOOLWINDOW, kind, "", WS_POPUP, 0, 0, 0, 0, parent, nullptr, instance, nullptr);
    if (window == nullptr)
        throw Failure(Why::NoAnswer, "The system gives no window for the exchange" + SystemReason(GetLastError()));
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(owner));
    return window;
}

std::string SystemReason(DWORD error)
{
    return error == 0 ? std::string() : ", which the system explains by error " + std::to_string(error);
}

} // namespace vasclip::conduit::dde
