#pragma once

#include <memory>

struct sqlite3;

namespace vasclip::street {

/// Reads the tables of a county file that `LookupWriter` wrote. Any thread may ask.
class LookupReader
{
public:
    /// @param county  open; must outlive the reader
    explicit LookupReader(sqlite3* county);
    ~LookupReader();
    LookupReader(const LookupReader&) = delete;
    LookupReader& operator=(const LookupReader&) = delete;

    struct Work;
    [[nodiscard]] Work& Data() const { return *m_work; }

private:
    std::unique_ptr<Work> m_work;
};

/// Reads the tables of the index that `NameIndexWriter` wrote. Any thread may ask.
class NameIndex
{
public:
    /// @param index  open; must outlive the reader
    explicit NameIndex(sqlite3* index);
    ~NameIndex();
    NameIndex(const NameIndex&) = delete;
    NameIndex& operator=(const NameIndex&) = delete;

    struct Work;
    [[nodiscard]] Work& Data() const { return *m_work; }

private:
    std::unique_ptr<Work> m_work;
};

} // namespace vasclip::street
