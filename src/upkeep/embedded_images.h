#pragma once

#include "upkeep/picture_journal.h"

#include <QHash>
#include <QSet>

#include <optional>

namespace vasclip::upkeep {

class PhotoPlaces;
class PictureRow;

/// What became of the pictures inside the rows of a table.
struct SavedImages
{
    bool stopped = false;
    bool declined = false; ///< the question was answered with Cancel: nothing was written
    int written = 0;       ///< new files
    int same = 0;          ///< that were in the photo directory already
    int over = 0;          ///< took the place of another picture
    int kept = 0;          ///< another picture of that name was left
    QStringList notSaved;  ///< "KEY: why"
};

/// What a row's picture would meet in the photo directory.
enum class RowPicture { None, Fresh, There, Other, Refused };

/// Of each row of a table, by its place. @throws RuntimeError of the engine
/// @return fewer after a stop
[[nodiscard]] QList<RowPicture> LookAtPictures(const TransferDesk& desk, engine::Database& source, const QString& table,
                                               const WorkStep& step);

/// The pictures inside rows on their way into the photo directory. They wait there under names of their own, so that
/// a stop or a kill leaves the directory as it was; Place gives them their names.
class EmbeddedImages
{
public:
    static constexpr qsizetype kProofs = 16; ///< records that are enough
    /// @param source  that is read and never written
    EmbeddedImages(const TransferDesk& desk, engine::Database& source, const QString& table);
    ~EmbeddedImages(); ///< what was not placed and kept goes, and what it took the place of is back
    EmbeddedImages(const EmbeddedImages&) = delete;
    EmbeddedImages& operator=(const EmbeddedImages&) = delete;

    /// Takes the pictures of these keys alone, as KeyMark has them.
    void Only(const QSet<QString>& keys) { m_only = keys; }
    /// Writes the front picture of each row that has one, in pieces, and asks once before other pictures are written
    /// over. @return false after a stop or Cancel. @throws RuntimeError of disk and engine
    bool SaveEmbeddedImages(const WorkStep& step);
    /// Pictures of rows that did not come in are not placed, but where another row has the same one.
    void Drop(const QSet<QString>& keys);
    /// A record that tells after a kill whether the rows were stored. A few of them do.
    void ProvedBy(const Proof& proof) { m_proofs.append(proof); }
    [[nodiscard]] bool WantsProof() const { return m_proofs.size() < kProofs && !m_waiting.isEmpty(); }
    /// Gives them their names, which is taken back with this object, or when a killed one's Databook is opened again,
    /// unless Keep follows. @throws RuntimeError 61, 75
    void Place();
    /// The rows are stored: what was placed stays.
    void Keep();
    [[nodiscard]] const SavedImages& Result() const { return m_result; }

private:
    struct Waiting
    {
        QString file; ///< native, under its name to be
        bool over = false;
        QSet<QString> keys; ///< of the rows that have it, as KeyMark has them
    };
    /// A picture of the same name that an earlier row has. @return false if there is none
    bool MetBefore(const PictureRow& row, const QString& native, const QString& stem);
    /// @return false if it was stopped
    [[nodiscard]] bool SaveOne(const PictureRow& row, const PhotoPlaces& places, const std::function<bool()>& goOn);
    [[nodiscard]] QString WaitingName(const QString& native) const;
    [[nodiscard]] QString ReplacedName(const QString& native) const; ///< of a copy of what gives way
    [[nodiscard]] QList<PlacedPicture> ToPlace() const;
    void Sweep() const;

    const TransferDesk& m_desk;
    engine::Database& m_source;
    QString m_table;
    SavedImages m_result;
    std::optional<QSet<QString>> m_only;
    QList<Waiting> m_waiting;
    QStringList m_placed; ///< native, until they are kept
    QList<Proof> m_proofs;
    PictureJournal m_journal;
    QHash<QString, QString> m_met; ///< by the name to be: the file that holds an earlier row's picture
};

} // namespace vasclip::upkeep
