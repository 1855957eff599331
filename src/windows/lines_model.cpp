#include "windows/lines_model.h"

#include <algorithm>

namespace vasclip::windows {

LinesModel::LinesModel(const forms::ListBox& control, QObject* parent, Offer offer)
    : QAbstractListModel(parent)
    , m_control(control)
    , m_offer(offer)
    , m_offered(First())
{}

int LinesModel::First() const
{
    return m_offer == Offer::All ? m_control.ListCount() : std::min(m_control.ListCount(), kPiece);
}

int LinesModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_offered;
}

QVariant LinesModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole))
        return {};
    try {
        return m_control.List(index.row());
    } catch (const RuntimeError&) {
        return {}; // painting is no place for a box; the grid behind tells what is wrong
    }
}

bool LinesModel::canFetchMore(const QModelIndex& parent) const
{
    return !parent.isValid() && m_offered < m_control.ListCount();
}

void LinesModel::fetchMore(const QModelIndex& parent)
{
    if (parent.isValid())
        return;
    const int more = std::min(kPiece, m_control.ListCount() - m_offered);
    if (more <= 0)
        return;
    beginInsertRows({}, m_offered, m_offered + more - 1);
    m_offered += more;
    endInsertRows();
}

void LinesModel::Reset()
{
    beginResetModel();
    m_offered = First();
    endResetModel();
}

} // namespace vasclip::windows
