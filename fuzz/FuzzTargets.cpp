#include "FuzzTargets.h"

#include "BuildError.h"
#include "DCharacter.h"
#include "DRace.h"
#include "DTable.h"
#include "DTableRoller.h"
#include "DTableText.h"
#include "DTreasure.h"
#include "DXslTransform.h"
#include "FCArchive.h"
#include "FCObject.h"
#include "RowFile.h"
#include "RowResolver.h"
#include "SchemaParser.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QDataStream>
#include <QDir>
#include <QFile>

namespace hoardfuzz {
namespace {

// One scratch file per process and suffix: the file readers take a path, not bytes.
QString scratchFile(const char* suffix) {
    return QDir::tempPath() +
           QStringLiteral("/hoard-fuzz-%1.%2").arg(QCoreApplication::applicationPid()).arg(suffix);
}

bool writeScratch(const QString& path, const uint8_t* data, size_t size) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
           file.write(reinterpret_cast<const char*>(data), qint64(size)) == qint64(size);
}

// The shipped schema, read once per process: the rows under test change, the tables do not.
const QList<const TableDef*>& shippedTables() {
    static const SchemaParser schema = [] {
        SchemaParser parser;
        const QDir folder(QStringLiteral(HOARD_RULES_SOURCE_DIR "/schema"));
        for (const QString& name : folder.entryList({QStringLiteral("*.sql")}, QDir::Files))
            parser.parseFile(folder.filePath(name));
        return parser;
    }();
    static const QList<const TableDef*> tables = [] {
        QList<const TableDef*> list;
        for (const TableDef& table : schema.tables())
            list.append(&table);
        return list;
    }();
    return tables;
}

template <typename Object> void release(Object* object) {
    if (object)
        object->Release();
}

} // namespace

int FuzzArchive(const uint8_t* data, size_t size) {
    const QByteArray bytes =
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    QDataStream stream(bytes);
    FCArchive archive(&stream, FCArchive::Load);
    release(archive.ReadObject());
    return 0;
}

int FuzzRaceFile(const uint8_t* data, size_t size) {
    const QString path = scratchFile("rac");
    if (!writeScratch(path, data, size))
        return 0;
    release(DRace::CreateFromFile(FCString(path), true));
    release(DRace::CreateFromFile(FCString(path), false));
    QFile::remove(path);
    return 0;
}

int FuzzCharacterFile(const uint8_t* data, size_t size) {
    const QString path = scratchFile("chr");
    if (!writeScratch(path, data, size))
        return 0;
    release(DCharacter::CreateFromFile(FCString(path), true, nullptr));
    release(DCharacter::CreateFromFile(FCString(path), false, nullptr));
    QFile::remove(path);
    return 0;
}

int FuzzTreasureFile(const uint8_t* data, size_t size) {
    const QString path = scratchFile("trs");
    if (!writeScratch(path, data, size))
        return 0;
    FCRef<DTreasure> treasure(DTreasure::CreateFromFile(path));
    QFile::remove(path);
    if (treasure) {
        DCurrency total;
        treasure->GetTotalCost(total);
    }
    return 0;
}

int FuzzTableFile(const uint8_t* data, size_t size) {
    const QString path = scratchFile("tbl");
    if (!writeScratch(path, data, size))
        return 0;
    FCRef<DTable> table(DTable::CreateFromFile(FCString(path)));
    QFile::remove(path);
    if (!table)
        return 0;
    DTable* self = table.get();
    DTableRoller roller([](int, int count) { return count; },
                        [self](const DFileObject&) {
                            self->Retain();
                            return FCRef<DTable>(self);
                        },
                        [](const DFileObject&) { return true; });
    roller.Roll(*table);
    DTableText::CheckCoverage(*table);
    DTableText::Write(*table);
    return 0;
}

int FuzzTableText(const uint8_t* data, size_t size) {
    FCRef<DTable> table(new DTable());
    int line = 0;
    QString error;
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    if (DTableText::Parse(text, *table, line, error))
        DTableText::CheckCoverage(*table);
    return 0;
}

int FuzzXmlDocument(const uint8_t* data, size_t size) {
    const QByteArray document =
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    const QString sheets = QStringLiteral(HOARD_XML_SOURCE_DIR);
    const DXslTransform transform({sheets});
    QByteArray result;
    QString error;
    transform.Apply(document, QStringLiteral("fuzz.xml"),
                    sheets + QStringLiteral("/Character/Stat Block.xsl"), result, error);
    return 0;
}

int FuzzRuleRows(const uint8_t* data, size_t size) {
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    const qsizetype end = text.indexOf(u'\n');
    if (end < 0)
        return 0;
    try {
        RowFile rows;
        rows.parseText(text.mid(end + 1), QStringLiteral("fuzz.tsv"));
        RowResolver resolver(shippedTables());
        resolver.load(text.left(end), rows);
        resolver.resolve();
    } catch (const BuildError&) {
        // A refused source is the expected answer to most inputs.
    }
    return 0;
}

} // namespace hoardfuzz
