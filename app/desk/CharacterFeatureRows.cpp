#include "CharacterFeatureRows.h"

#include "DCharacter.h"
#include "DChosenFeature.h"
#include "DClassInfo.h"
#include "DDatabase.h"
#include "DHandBook.h"

#include <QCoreApplication>
#include <QList>
#include <QStringList>
#include <QUuid>

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("CharacterFeatureRows", text);
}

} // namespace

QString CharacterFeatureRows::Build(const DCharacter& character) {
    // The feature arrays are reached through a non-const accessor only; nothing is changed.
    auto& readable = const_cast<DCharacter&>(character);
    QList<QUuid> classes;
    QList<QStringList> names;
    for (const int array : {0, 1}) {
        for (const DChosenFeature* feature : readable.GetFeatureArray(array)) {
            qsizetype at = classes.indexOf(feature->GetClassGuid());
            if (at < 0) {
                classes << feature->GetClassGuid();
                names << QStringList();
                at = classes.size() - 1;
            }
            names[at] << DHandBook::BuildFeatureName(feature);
        }
    }
    QString rows;
    for (qsizetype i = 0; i < classes.size(); ++i) {
        const DClassInfo* info = DDatabase::GetClassInfoA(classes[i]);
        const QString caption = info ? tr("%1 features").arg(QString(info->mName)) : tr("Features");
        rows +=
            QStringLiteral("<tr><td valign=\"top\"><b>%1</b></td><td>%2</td></tr>")
                .arg(caption.toHtmlEscaped(), names[i].join(QStringLiteral(", ")).toHtmlEscaped());
    }
    return rows;
}
