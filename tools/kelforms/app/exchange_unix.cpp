#include "kelforms/app/exchange.h"

namespace kelforms {

struct Exchange::Private
{
};

Exchange::Exchange(vasclip::conduit::LinkHandler&, std::function<bool(const QString&)>,
                   vasclip::conduit::ExchangeObserver)
{}

Exchange::~Exchange() = default;

} // namespace kelforms
