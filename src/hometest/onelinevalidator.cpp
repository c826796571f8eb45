#include "hometest/onelinevalidator.h"

OneLineValidator::OneLineValidator(QObject *parent)
    : QValidator(parent)
{
}

QValidator::State OneLineValidator::validate(QString &text, int &) const
{
    const QChar breaks[] = {QLatin1Char('\n'), QLatin1Char('\r'), QLatin1Char('\v'),
        QLatin1Char('\f'), QChar(QChar::LineSeparator), QChar(QChar::ParagraphSeparator),
        QChar(0x85)};
    for (const QChar &lineBreak : breaks)
        text.replace(lineBreak, QLatin1Char(' '));
    return Acceptable;
}
