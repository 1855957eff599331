#include "formsbook/scripts.h"

using namespace Qt::Literals::StringLiterals;

namespace vasclip::formsbook {

QList<ScriptFile> Scripts()
{
    return {
        {u"ADDPLUS.BAS"_s, u"' Runs when another program has found the active report.\r\n"
                           "SetRequest \"ADDPLUS\", \"1\"\r\n"_s},
        {u"recalc.bas"_s, u"' Runs after a comp has been written into the report.\r\n"
                          "Recalculate\r\n"
                          "Repaint\r\n"_s},
        {u"refresh.bas"_s, u"' Runs after a picture has been put into the report.\r\n"
                           "Repaint\r\n"_s},
        {u"CITYPLUS.BAS"_s, u"' Runs after the city lines of comps have been written.\r\n"
                            "Repaint\r\n"_s},
    };
}

} // namespace vasclip::formsbook
