#ifndef AIRLUME_HOMETEST_ONELINEVALIDATOR_H
#define AIRLUME_HOMETEST_ONELINEVALIDATOR_H

#include <QValidator>

/// Accepts every text and turns line breaks into blanks: a line edit lets pasted ones through, but
/// the first line of a room's cell is its name.
class OneLineValidator : public QValidator
{
    Q_OBJECT

public:
    explicit OneLineValidator(QObject *parent = nullptr);

    State validate(QString &text, int &position) const override;
};

#endif
