#include "plaintext.h"
#include "session.h"

#include <QCoreApplication>

#include <cstdio>

using namespace PluginCheck;

namespace
{

void write(std::FILE *stream, const QString &text)
{
    // It quotes the command line, which may hold anything.
    QStringList lines;
    for (const QString &line : text.split(QLatin1Char('\n')))
        lines.append(escaped(line));
    std::fputs(terminalBytes(lines.join(QLatin1Char('\n')), terminalIsUtf8()).constData(), stream);
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
