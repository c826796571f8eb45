#include "plaintext.h"
#include "session.h"

#include <QCoreApplication>

#include <cstdio>

using namespace PluginCheck;

namespace
{

void write(std::FILE *stream, const QString &text)
{
    std::fputs(terminalBytes(text, terminalIsUtf8()).constData(), stream);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const Options options = parseOptions(QCoreApplication::arguments());
    switch (options.action) {
    case Options::ShowHelp:
    case Options::ShowVersion:
        write(stdout, options.text);
        return 0;
    case Options::Refuse:
        write(stderr, options.text);
        return 2;
    case Options::Check:
        break;
    }
    Session session(options);
    return session.run();
}
