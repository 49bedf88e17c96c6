#include "DRollXml.h"

#include "DXmlStream.h"

void DRollXml::Write(const QList<RollList>& lists, QTextStream& out, const QString& styleSheet) {
    DXmlStream xml(out);
    xml.WriteHead(styleSheet, false);
    xml.Open("roll-lists");
    for (const RollList& list : lists) {
        xml.Open("roll-list");
        xml.Text("name", list.expression);
        xml.Open("rolls");
        for (const QString& roll : list.rolls)
            xml.Text("roll", roll);
        xml.Close("rolls");
        xml.Close("roll-list");
    }
    xml.Close("roll-lists");
    out.flush();
}
