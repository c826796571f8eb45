#ifndef AIRLUME_APP_ELIDEDLABEL_H
#define AIRLUME_APP_ELIDEDLABEL_H

#include <QLabel>

/// A one-line label for texts from the air: plain text, elided to the width it has, whole in its
/// tool tip. Never asks for more room than its layout gives. text() stays what was set.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};

#endif
