#include "link/save_data.h"

#include "common/addresses.h"
#include "common/error_block.h"
#include "databook/comp_fields.h"
#include "databook/messages.h"
#include "link/apprsl_type.h"
#include "link/comp_data.h"
#include "link/messages.h"
#include "link/set_city.h"
#include "platform/conduit/patience.h"
#include "platform/engine/errors.h"
#include "platform/text/text.h"
#include "store/change.h"
#include "store/fields.h"
#include "store/messages.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kTries = 5;

/// One comp on its way into the Databook. What was asked and read stays so when a step is tried again.
class Saving
{
public:
    Saving(LinkDesk& desk, const QString& key, const ReportPlace& place, MappingPages& pages,
           const std::function<bool()>& goOn)
        : m_desk(desk)
        , m_key(key)
        , m_place(place)
        , m_compType(RowOf(place.group).storing)
        , m_pages(pages)
        , m_goOn(goOn)
    {}

    SaveOutcome Run()
    {
        for (int tries = 1;; ++tries) {
            const std::optional<store::Record> held = Held();
            if (held && !m_asked && !MayReplace(*held))
                return SaveOutcome::Kept;
            if (!m_read) {
                if (const SaveOutcome outcome = Read(); outcome != SaveOutcome::Added)
                    return outcome;
            }
            // Both the question and the reading turned the queue.
            const bool stillThere = Held().has_value();
            if (stillThere && !m_asked)
                continue;
            try {
                return Store(stillThere);
            } catch (const RuntimeError& failure) {
                // Another user added, deleted or changed it a moment ago: look again.
                const bool meanwhile = failure.Number() == error::kDuplicateKey ||
                                       failure.Number() == error::kDataChanged ||
                                       failure.Number() == error::kNoCurrentRecord ||
                                       failure.Number() == error::kRecordDeleted;
                if (!meanwhile || tries == kTries)
                    throw;
            }
        }
    }

private:
    [[nodiscard]] std::optional<store::Record> Held() const
    {
        return store::ReadRecord(m_desk.sources.datDatabook, m_key);
    }

    bool MayReplace(const store::Record& held)
    {
        m_asked = true;
        const QString address = held.Text(fields::ADDRESS);
        m_desk.ports.window.AppActivate();
        return m_desk.ports.prompter.YesNo(store::kPlainTitle,
                                           messages::kReplaceData.arg(address.isEmpty() ? m_key : address));
    }

    SaveOutcome Read()
    {
        m_read = true;
        if (m_place.comp == kNoComp)
            return SaveOutcome::Added;
        m_desk.ports.window.AppActivate();
        auto cells =
            ReadCompData(m_desk, m_desk.addr.txtFormType.Text(), text::Trim(m_desk.addr.txtKelReport.Text()),
                         m_place.comp, m_compType, m_pages, m_goOn);
        m_desk.ports.window.AppActivate();
        if (!cells)
            return SaveOutcome::GivenUp;
        if (cells->isEmpty())
            return SaveOutcome::NoMapping;
        m_cells = std::move(*cells);
        return SaveOutcome::Added;
    }

    /// @param there  the record is replaced, else added
    SaveOutcome Store(bool there)
    {
        store::DataSource& databook = m_desk.sources.datDatabook;
        std::optional<store::Change> change;
        if (there)
            change.emplace(databook, store::Change::OfKey{m_key}, messages::kReadWords);
        else
            change.emplace(databook, store::Change::NewKey{}, messages::kAddReadWords.arg(m_key));
        store::DataSource& record = change->Source();
        const QString neighborhood = there ? store::GetFieldData(record, fields::NEIGHBORHD) : QString();
        change->Set(store::kKeyIndex, store::Trim2Size(databook, m_key, store::kKeyIndex));
        StoreCompData(m_desk, record, m_key, m_cells);
        if (there)
            databook::ForceLoadDate2Today(m_desk.ports, record);
        else
            databook::SetLoadDate2Today(m_desk.ports, record);
        SetApprslType(record, m_compType, m_desk.addr.txtFormType.Text());
        ErrDatabookSetCity(m_desk, record, CityRule::Replace, m_place.comp);
        if (there)
            KeepNeighborhood(record, neighborhood);
        change->Store();
        return there ? SaveOutcome::Replaced : SaveOutcome::Added;
    }

    /// What a comp's second address line holds is read as NEIGHBORHD. A city line, which has become the city by now,
    /// does not cost a record the name of its neighborhood.
    void KeepNeighborhood(store::DataSource& record, const QString& held) const
    {
        const auto isCityLine = [](const QString& line) {
            return common::IsCityLine(common::ParseCityStateZip(line));
        };
        if (m_place.group != Group::Subject && m_place.comp != kNoComp && !isCityLine(held) &&
            isCityLine(store::GetFieldData(record, fields::NEIGHBORHD)))
            store::SetFieldData(record, held, fields::NEIGHBORHD);
    }

    LinkDesk& m_desk;
    QString m_key;
    ReportPlace m_place;
    QString m_compType;
    MappingPages& m_pages;
    const std::function<bool()>& m_goOn;
    QList<CompCell> m_cells;
    bool m_asked = false;
    bool m_read = false;
};

/// @throws RuntimeError 3163 for a key that no record can bear
void CheckLength(const BookSources& desk, const QString& key)
{
    const int size = store::SizeOf(desk.sources.datDatabook, store::kKeyIndex);
    if (key.size() > size)
        throw RuntimeError(error::kFieldTooLong,
                           databook::kAddressTooLong.arg(key, text::Dec(key.size()), text::Dec(size)));
}

} // namespace

SaveOutcome SaveDataToDatabook(LinkDesk& desk, const QString& key, const ReportPlace& place,
                               MappingPages& pages, const std::function<bool()>& goOn)
{
    const common::RoutineScope scope{"SaveDataToDatabook"};
    const QString folded = text::Folded(key);
    if (folded.isEmpty())
        return SaveOutcome::Blank;
    SaveOutcome outcome = SaveOutcome::Failed;
    try {
        Saving saving(desk, folded, place, pages, goOn);
        common::Guarded(desk.ports.prompter, [&] {
            CheckLength(desk, folded);
            outcome = saving.Run();
        });
    } catch (const RuntimeError& failure) {
        if (failure.Number() == conduit::kUserInterrupt)
            return SaveOutcome::GivenUp;
        common::ReportError(desk.ports.prompter, failure);
        return LinkIsDead(failure.Number()) ? SaveOutcome::LinkLost : SaveOutcome::Failed;
    }
    return outcome;
}

} // namespace vasclip::link
