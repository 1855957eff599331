#pragma once

#include "link/proximity_source.h"

#include <QStringList>

namespace vasclip::link {

using namespace Qt::StringLiterals;

/// A map that shows one point and knows one distance.
class FakeProximity final : public ProximitySource
{
public:
    QString ShownAddress() const override { return shownAddress; }
    QString ShownProximity() const override { return shownProximity; }
    QString CalcTheDistance(const QString& key) override
    {
        asked << key;
        return miles;
    }
    QString GetDirection(const QString& address) override
    {
        asked << address;
        return direction;
    }
    QStringList asked;
    QString shownAddress, shownProximity;
    QString miles = u"1.2"_s, direction = u"NW"_s;
};

} // namespace vasclip::link
