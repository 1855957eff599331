#pragma once

#include "forms/controls.h"

#include <QAbstractListModel>

namespace vasclip::windows {

/// The lines of a list's source for a view that shows some of them: asked for as they are painted, and
/// offered a piece at a time as the view is scrolled, so that a long list opens like a short one.
class LinesModel : public QAbstractListModel
{
    Q_OBJECT
public:
    /// A popup offers its lines in pieces; a list that scrolls to any line has them all.
    enum class Offer { Pieces, All };
    /// The control outlives the model.
    explicit LinesModel(const forms::ListBox& control, QObject* parent = nullptr,
                        Offer offer = Offer::Pieces);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;

    void Reset(); ///< the lines are others now

    static constexpr int kPiece = 200;

private:
    [[nodiscard]] int First() const; ///< how many lines are offered at first
    const forms::ListBox& m_control;
    Offer m_offer;
    int m_offered = 0;
};

} // namespace vasclip::windows
