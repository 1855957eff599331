#pragma once

#include "store/data_source.h"

#include <QTimer>

#include <functional>
#include <optional>

namespace vasclip::databook {

/// What stands in the boxes of a record.
struct TypedAddress
{
    QString key; ///< of the record itself, "" for one that is not there yet
    QString address, city;
};

/// Tells of another record at the address that is typed, once the typing pauses; a key that is pressed costs nothing but the
/// words that go.
class TwinWatch : public QObject
{
    Q_OBJECT
public:
    /// What stands in the boxes; nothing where there is nothing to be said.
    using Ask = std::function<std::optional<TypedAddress>()>;

    /// @param databook  outlives this, as the table's name does
    TwinWatch(const store::DataSource& databook, const QString& table, Ask ask);

    void Typed();  ///< by the user
    void Forget(); ///< another record is on show: silence
    [[nodiscard]] const QString& Twin() const { return m_twin; } ///< its key, "" for none

    static constexpr int kPause = 350; ///< milliseconds

Q_SIGNALS:
    void Changed(); ///< Twin is another one

private:
    void Look();
    void Set(const QString& twin);

    const store::DataSource& m_databook;
    const QString& m_table;
    Ask m_ask;
    QTimer m_timer;
    QString m_twin;
};

/// The words about it: "Your record 123 N OAK ST stands at this address."
[[nodiscard]] QString TwinText(const QString& key);

} // namespace vasclip::databook
