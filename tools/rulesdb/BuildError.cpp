#include "BuildError.h"

BuildError::BuildError(QString file, int line, QString message)
    : mFile(std::move(file)), mLine(line), mMessage(std::move(message)), mWhat(text().toUtf8()) {}

QString BuildError::text() const {
    return QStringLiteral("%1:%2: %3").arg(mFile).arg(mLine).arg(mMessage);
}

const char* BuildError::what() const noexcept {
    return mWhat.constData();
}
