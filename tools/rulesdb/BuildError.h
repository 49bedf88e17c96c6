#pragma once

#include <QString>

#include <exception>

// A fault in the rule sources, located at a file and line (line 0: the file as a whole).
class BuildError : public std::exception {
public:
    BuildError(QString file, int line, QString message);

    const QString& file() const { return mFile; }
    int line() const { return mLine; }
    const QString& message() const { return mMessage; }

    // "FILE:LINE: message", the form compilers use, so editors can jump to it.
    QString text() const;

    const char* what() const noexcept override;

private:
    QString mFile;
    int mLine = 0;
    QString mMessage;
    QByteArray mWhat;
};
