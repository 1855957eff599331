#pragma once

#include "platform/engine/database.h"
#include "platform/engine/jet/catalogue.h"
#include "platform/engine/jet/table_rows.h"

#include <QHash>

namespace vasclip::engine::jet {

/// One opening of a genuine file, shared by its database and record sets.
struct Opening
{
    QString path;
    OpenMode mode = OpenMode::ReadOnly;
    const text::TimeSource* time = nullptr;
    std::shared_ptr<PageFile> file; ///< null when closed
    std::shared_ptr<Findings> findings = std::make_shared<Findings>();
    Catalogue catalogue;

    void NeedOpen() const; ///< @throws 3420
    /// nullptr if there is no such table. @throws 3049 if what defines it can't be read
    [[nodiscard]] TableRows* Find(const QString& name);
    [[nodiscard]] TableRows& Need(const QString& name); ///< @throws 3078, 3049
    [[nodiscard]] QString WhyReadOnly() const;
    void Close();

private:
    QHash<QString, std::shared_ptr<TableRows>> m_tables;
};

} // namespace vasclip::engine::jet
