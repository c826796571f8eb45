#include "examplehost.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QSocketNotifier>

#include <unistd.h>

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Plays Airlume's host suite. Commands come from the standard input, one a "
        "line:\n  language CODE  set the language, now and for later requests\n"
        "  raw TEXT       send TEXT as it stands (\\n, \\r, \\t and \\\\ are known)\n"
        "  exit           tell Airlume to end\n"
        "  quit           end this host, as the end of the input does"));
    parser.addHelpOption();
    const QCommandLineOption language(QStringLiteral("language"),
        QStringLiteral("Answer each request with this language code."), QStringLiteral("code"));
    parser.addOption(language);
    parser.process(application);

    ExampleHost host(parser.value(language));
    if (!host.listen())
        return 1;

    // Read without a buffer that would hide a second line from the notifier.
    QByteArray input;
    QSocketNotifier notifier(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, &host, [&] {
        char block[4096];
        const ssize_t size = read(STDIN_FILENO, block, sizeof block);
        if (size <= 0) {
            QCoreApplication::quit();
            return;
        }
        input.append(block, static_cast<int>(size));
        for (int end = input.indexOf('\n'); end >= 0; end = input.indexOf('\n')) {
            host.obey(QString::fromUtf8(input.left(end)));
            input.remove(0, end + 1);
        }
    });
    return QCoreApplication::exec();
}
