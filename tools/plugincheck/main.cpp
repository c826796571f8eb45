#include "judgedchild.h"
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
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 4 && arguments.at(1) == QLatin1String(ChildOption))
        return runJudgedChild(arguments.at(2).toInt(), arguments.at(3));

    const Options options = parseOptions(arguments);
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
