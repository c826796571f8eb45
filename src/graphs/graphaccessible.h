#ifndef AIRLUME_GRAPHS_GRAPHACCESSIBLE_H
#define AIRLUME_GRAPHS_GRAPHACCESSIBLE_H

#include <QAccessibleWidget>

class QwtPlot;

/// What `graph` draws, in words: each network's name and latest signal, at 5 and 2.4 GHz also its
/// channel, the strongest first, at most 20 of them. Plain text of one line.
QString describeGraph(const QwtPlot &graph);

/// Tells assistive technology what a graph draws, in its description. The axes, the canvas and the
/// legend say nothing more and are left out. GUI thread only.
class GraphAccessible : public QAccessibleWidget
{
public:
    explicit GraphAccessible(QwtPlot *graph);

    /// Makes Qt use this class for every graph. May be called more than once.
    static void install();
    /// Tells whoever listens that the description of `graph` is another one, if it is. Not while
    /// the graph has the focus: it would be read out from the beginning at every scan. Costs
    /// nothing when nobody listens.
    static void tell(QwtPlot *graph);

    int childCount() const override { return 0; }
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QString text(QAccessible::Text kind) const override;

private:
    const QwtPlot &graph() const;

    QString m_toldDescription;
};

#endif
