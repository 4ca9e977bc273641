#include "core/given_password.h"

#include <unistd.h>

#include <cerrno>

QString passwordFromDescriptor(int descriptor) {
    QByteArray line("");
    for (char byte = 0;;) {
        const ssize_t got = ::read(descriptor, &byte, 1);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return {};
        if (got == 0 || byte == '\n')
            return QString::fromUtf8(line);
        line += byte;
    }
}

QString passwordFromDescriptor(const QString& number) {
    bool isNumber = false;
    const int descriptor = number.toInt(&isNumber);
    return isNumber ? passwordFromDescriptor(descriptor) : QString();
}

QString passwordFromEnvironment(const char* variable) {
    const QString password = qEnvironmentVariable(variable);
    qunsetenv(variable);
    return password;
}
