#include "SQLException.h"

namespace odbc {

SQLException::SQLException(const QString& message) : mMessage(message), mUtf8(message.toUtf8()) {}

const char* SQLException::what() const noexcept {
    return mUtf8.constData();
}

} // namespace odbc
