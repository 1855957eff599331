#include "photos/capture_pages.h"

#include <algorithm>

namespace vasclip::photos {

int FirstOfPage(PageTurn turn, int listIndex, int last)
{
    switch (turn) {
    case PageTurn::First:
        return 0;
    case PageTurn::Up:
    case PageTurn::Down:
        return listIndex;
    case PageTurn::Last:
        return last > 11 && last - listIndex < kPageStep ? listIndex : 0;
    case PageTurn::None:
        break;
    }
    return listIndex < 10 ? 0 : listIndex;
}

int ThumbTurn(PageTurn turn, int p, int last)
{
    const int lastPage = std::max(0, last - 11); // fewer files than a page has
    switch (turn) {
    case PageTurn::First:
        return 0;
    case PageTurn::Up:
        return std::max(0, p - kPageStep);
    case PageTurn::Down:
        return p + kPageStep >= last - kPageStep ? lastPage : p + kPageStep;
    case PageTurn::Last:
        return lastPage;
    case PageTurn::None:
        break;
    }
    return p;
}

int ListTurn(PageTurn turn, int p, int last)
{
    switch (turn) {
    case PageTurn::First:
        return 0;
    case PageTurn::Up:
        return std::max(0, p - kPageStep);
    case PageTurn::Down:
        return std::min(last, p + kPageStep);
    case PageTurn::Last:
        return last;
    case PageTurn::None:
        break;
    }
    return p;
}

} // namespace vasclip::photos
