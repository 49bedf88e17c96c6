#include "DXslTransform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>

#include <libexslt/exslt.h>
#include <libxml/entities.h>
#include <libxml/hash.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/tree.h>
#include <libxslt/security.h>
#include <libxslt/transform.h>
#include <libxslt/xsltInternals.h>
#include <libxslt/xsltutils.h>

#include <cstdarg>
#include <memory>

namespace {

// Safe parsing: no network, no entity substitution, no DTD loading, no XInclude.
constexpr int kParseOptions = XML_PARSE_NONET | XML_PARSE_NOWARNING;

struct DocFree {
    void operator()(xmlDoc* doc) const { xmlFreeDoc(doc); }
};
struct CtxtFree {
    void operator()(xmlParserCtxt* ctxt) const { xmlFreeParserCtxt(ctxt); }
};
struct StyleFree {
    void operator()(xsltStylesheet* style) const { xsltFreeStylesheet(style); }
};
struct TransformFree {
    void operator()(xsltTransformContext* ctxt) const { xsltFreeTransformContext(ctxt); }
};
struct PrefsFree {
    void operator()(xsltSecurityPrefs* prefs) const { xsltFreeSecurityPrefs(prefs); }
};
using DocPtr = std::unique_ptr<xmlDoc, DocFree>;

// Everything libxml2 and libxslt have to say while one operation runs, and the folders that
// operation may import style sheets from. The libraries keep their handlers process-wide, so
// the guard installs its own for the operation and puts the previous ones back.
class LibraryGuard {
public:
    explicit LibraryGuard(const QStringList& allowed) : mAllowed(allowed) {
        // The layouts read their lines through exsl:node-set.
        exsltRegisterAll();
        mPreviousLoader = xmlGetExternalEntityLoader();
        xmlSetExternalEntityLoader(&LibraryGuard::Load);
        xmlSetGenericErrorFunc(this, &LibraryGuard::Collect);
        xsltSetGenericErrorFunc(this, &LibraryGuard::Collect);
        mPreviousPrefs = xsltGetDefaultSecurityPrefs();
        mPrefs.reset(xsltNewSecurityPrefs());
        xsltSetSecurityPrefs(mPrefs.get(), XSLT_SECPREF_WRITE_FILE, &LibraryGuard::Forbid);
        xsltSetSecurityPrefs(mPrefs.get(), XSLT_SECPREF_CREATE_DIRECTORY, &LibraryGuard::Forbid);
        xsltSetSecurityPrefs(mPrefs.get(), XSLT_SECPREF_READ_NETWORK, &LibraryGuard::Forbid);
        xsltSetSecurityPrefs(mPrefs.get(), XSLT_SECPREF_WRITE_NETWORK, &LibraryGuard::Forbid);
        xsltSetSecurityPrefs(mPrefs.get(), XSLT_SECPREF_READ_FILE, &LibraryGuard::CheckRead);
        xsltSetDefaultSecurityPrefs(mPrefs.get());
    }
    ~LibraryGuard() {
        xsltSetDefaultSecurityPrefs(mPreviousPrefs);
        xsltSetGenericErrorFunc(nullptr, nullptr);
        xmlSetGenericErrorFunc(nullptr, nullptr);
        xmlSetExternalEntityLoader(mPreviousLoader);
    }
    LibraryGuard(const LibraryGuard&) = delete;
    LibraryGuard& operator=(const LibraryGuard&) = delete;

    xsltSecurityPrefs* Prefs() const { return mPrefs.get(); }
    // The first thing that went wrong, on one line.
    QString FirstMessage() const {
        if (!mRefused.isEmpty())
            return QStringLiteral("asks for the external resource '%1': refused").arg(mRefused);
        const QString all = mMessages.simplified();
        return all.isEmpty() ? QStringLiteral("unknown error") : all.left(300);
    }
    void NoteRefused(const QString& what) {
        if (mRefused.isEmpty())
            mRefused = what;
    }

private:
    // The loader and the read check get no context of their own: the guard is the context of
    // the error handler it installed.
    static LibraryGuard* Active() {
        return xmlGenericError == &LibraryGuard::Collect
                   ? static_cast<LibraryGuard*>(xmlGenericErrorContext)
                   : nullptr;
    }

    static void Collect(void* self, const char* format, ...) {
        char buffer[1024];
        va_list args;
        va_start(args, format);
        std::vsnprintf(buffer, sizeof buffer, format, args);
        va_end(args);
        auto* guard = static_cast<LibraryGuard*>(self);
        if (guard->mMessages.size() < 4096)
            guard->mMessages += QString::fromUtf8(buffer);
    }

    // A style sheet in one of the allowed folders may be imported; nothing else is read.
    bool MayRead(const char* url) const {
        if (!url)
            return false;
        const QUrl parsed(QString::fromUtf8(url));
        QString path;
        if (parsed.isLocalFile())
            path = parsed.toLocalFile();
        else if (parsed.scheme().isEmpty())
            path = QString::fromUtf8(url);
        else
            return false;
        const QString canonical = QFileInfo(path).canonicalFilePath();
        if (canonical.isEmpty() || !canonical.endsWith(QLatin1String(".xsl")))
            return false;
        for (const QString& folder : mAllowed) {
            const QString root = QFileInfo(folder).canonicalFilePath();
            if (!root.isEmpty() && canonical.startsWith(root + '/'))
                return true;
        }
        return false;
    }

    static xmlParserInputPtr Load(const char* url, const char* id, xmlParserCtxtPtr ctxt) {
        LibraryGuard* guard = Active();
        if (!guard || !guard->MayRead(url)) {
            if (guard)
                guard->NoteRefused(QString::fromUtf8(url ? url : id ? id : ""));
            return nullptr;
        }
        return guard->mPreviousLoader(url, id, ctxt);
    }

    static int Forbid(xsltSecurityPrefsPtr, xsltTransformContextPtr, const char* value) {
        if (LibraryGuard* guard = Active())
            guard->NoteRefused(QString::fromUtf8(value ? value : ""));
        return 0;
    }

    // Reads at transformation time (document()) are refused outright; at compile time only
    // imports of allowed style sheets pass.
    static int CheckRead(xsltSecurityPrefsPtr, xsltTransformContextPtr ctxt, const char* value) {
        LibraryGuard* guard = Active();
        if (guard && !ctxt && guard->MayRead(value))
            return 1;
        if (guard)
            guard->NoteRefused(QString::fromUtf8(value ? value : ""));
        return 0;
    }

    QStringList mAllowed;
    QString mMessages;
    QString mRefused;
    xmlExternalEntityLoader mPreviousLoader = nullptr;
    xsltSecurityPrefs* mPreviousPrefs = nullptr;
    std::unique_ptr<xsltSecurityPrefs, PrefsFree> mPrefs;
};

// The first external entity a DTD declares, or empty.
QString ExternalEntity(xmlDtd* dtd) {
    if (!dtd)
        return QString();
    if (dtd->SystemID || dtd->ExternalID)
        return QString::fromUtf8(
            reinterpret_cast<const char*>(dtd->SystemID ? dtd->SystemID : dtd->ExternalID));
    QString found;
    const auto scan = [](void* payload, void* data, const xmlChar*) {
        auto* entity = static_cast<xmlEntity*>(payload);
        auto* out = static_cast<QString*>(data);
        if (out->isEmpty() && (entity->SystemID || entity->ExternalID))
            *out = QString::fromUtf8(reinterpret_cast<const char*>(
                entity->SystemID ? entity->SystemID : entity->ExternalID));
    };
    if (dtd->entities)
        xmlHashScan(static_cast<xmlHashTable*>(dtd->entities), scan, &found);
    if (found.isEmpty() && dtd->pentities)
        xmlHashScan(static_cast<xmlHashTable*>(dtd->pentities), scan, &found);
    return found;
}

DocPtr ParseDocument(const QByteArray& bytes, const QString& name, LibraryGuard& guard,
                     QString& error) {
    std::unique_ptr<xmlParserCtxt, CtxtFree> ctxt(xmlNewParserCtxt());
    if (!ctxt) {
        error = QStringLiteral("%1: out of memory").arg(name);
        return nullptr;
    }
    const QByteArray url = QUrl::fromLocalFile(name).toEncoded();
    DocPtr doc(xmlCtxtReadMemory(ctxt.get(), bytes.constData(), int(bytes.size()), url.constData(),
                                 nullptr, kParseOptions));
    if (!doc || !ctxt->wellFormed) {
        const xmlError* last = xmlCtxtGetLastError(ctxt.get());
        const QString message = last && last->message
                                    ? QString::fromUtf8(last->message).simplified()
                                    : guard.FirstMessage();
        error = QStringLiteral("%1:%2: %3").arg(name).arg(last ? last->line : 0).arg(message);
        return nullptr;
    }
    QString external = ExternalEntity(doc->intSubset);
    if (external.isEmpty())
        external = ExternalEntity(doc->extSubset);
    if (!external.isEmpty()) {
        error =
            QStringLiteral("%1 asks for the external resource '%2': refused").arg(name, external);
        return nullptr;
    }
    return doc;
}

bool ReadFile(const QString& path, QByteArray& bytes, QString& error) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = QStringLiteral("cannot read the style sheet %1").arg(path);
        return false;
    }
    bytes = file.readAll();
    return true;
}

} // namespace

bool DXslTransform::CheckDocument(const QByteArray& document, const QString& documentName,
                                  QString& error) const {
    LibraryGuard guard(mAllowedFolders);
    return ParseDocument(document, documentName, guard, error) != nullptr;
}

bool DXslTransform::Apply(const QByteArray& document, const QString& documentName,
                          const QString& styleSheetPath, QByteArray& result, QString& error) const {
    QByteArray styleBytes;
    if (!ReadFile(styleSheetPath, styleBytes, error))
        return false;
    LibraryGuard guard(mAllowedFolders);
    DocPtr source = ParseDocument(document, documentName, guard, error);
    if (!source)
        return false;
    DocPtr styleDoc = ParseDocument(styleBytes, styleSheetPath, guard, error);
    if (!styleDoc)
        return false;
    // The style sheet takes its document over, also when it fails to compile.
    std::unique_ptr<xsltStylesheet, StyleFree> style(xsltParseStylesheetDoc(styleDoc.get()));
    if (!style || style->errors > 0) {
        if (!style)
            styleDoc.reset();
        else
            styleDoc.release();
        error = QStringLiteral("the style sheet %1 does not compile: %2")
                    .arg(styleSheetPath, guard.FirstMessage());
        return false;
    }
    styleDoc.release();
    std::unique_ptr<xsltTransformContext, TransformFree> ctxt(
        xsltNewTransformContext(style.get(), source.get()));
    if (!ctxt || xsltSetCtxtSecurityPrefs(guard.Prefs(), ctxt.get()) != 0) {
        error = QStringLiteral("the style sheet %1 cannot be applied").arg(styleSheetPath);
        return false;
    }
    DocPtr output(
        xsltApplyStylesheetUser(style.get(), source.get(), nullptr, nullptr, nullptr, ctxt.get()));
    if (!output || ctxt->state != XSLT_STATE_OK) {
        error = QStringLiteral("the style sheet %1 fails on %2: %3")
                    .arg(styleSheetPath, documentName, guard.FirstMessage());
        return false;
    }
    xmlChar* text = nullptr;
    int length = 0;
    if (xsltSaveResultToString(&text, &length, output.get(), style.get()) != 0) {
        error = QStringLiteral("the result of %1 cannot be written").arg(styleSheetPath);
        return false;
    }
    result = QByteArray(reinterpret_cast<const char*>(text), length);
    xmlFree(text);
    return true;
}

QString DXslTransform::OutputMethod(const QString& styleSheetPath) {
    QFile file(styleSheetPath);
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("xml");
    const QString head = QString::fromUtf8(file.read(4096));
    const QRegularExpression method(
        QStringLiteral("<xsl:output[^>]*method\\s*=\\s*[\"']([a-z]+)[\"']"));
    const QRegularExpressionMatch match = method.match(head);
    return match.hasMatch() ? match.captured(1) : QStringLiteral("xml");
}
