#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// The one door to libxml2 and libxslt. Documents and style sheets are parsed without network
// access, without entity substitution and without loading any DTD; a document that declares
// an external entity or subset is refused before anything is read. Style sheets may not write
// files, make folders or touch the network, and may read only other style sheets that lie in
// one of the allowed folders (imports of a shared sheet).
class DXslTransform {
public:
    // `allowedFolders`: where style sheets may import from (the installed and the user's
    // xml folders).
    explicit DXslTransform(QStringList allowedFolders)
        : mAllowedFolders(std::move(allowedFolders)) {}

    // Applies the style sheet file to the document; false with `error` naming the fault.
    bool Apply(const QByteArray& document, const QString& documentName,
               const QString& styleSheetPath, QByteArray& result, QString& error) const;
    // Parses the document as Apply does, and nothing more.
    bool CheckDocument(const QByteArray& document, const QString& documentName,
                       QString& error) const;
    // The output method the style sheet declares ("text", "html", "xml"); "xml" if none.
    static QString OutputMethod(const QString& styleSheetPath);

private:
    QStringList mAllowedFolders;
};
