#ifndef FIXTUREPREVIEWPARTS_P_H
#define FIXTUREPREVIEWPARTS_P_H

#include "MatchReport.h"

#include <QColor>
#include <QVector>
#include <QWidget>

namespace lxcolor {

/// Two lights side by side, without a gap, so that a difference shows.
class LightPair : public QWidget
{
    Q_OBJECT

public:
    explicit LightPair(QWidget* parent = nullptr);
    void setReport(const MatchReport& report);
    QSize sizeHint() const override { return {320, 104}; }
    QSize minimumSizeHint() const override { return {200, 88}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Side
    {
        QString name, numbers;
        QColor color;
    };
    static Side sideOf(const QString& name, const MatchReport::Light& light);
    void paintSide(QPainter& painter, const QRect& rect, const Side& side, bool isLeft) const;

    Side m_requested, m_achieved;
};

/// A row for each channel: the emitter's name, its level as a bar in its colour, the level in percent and the DMX
/// bytes.
class EmitterBars : public QWidget
{
    Q_OBJECT

public:
    explicit EmitterBars(QWidget* parent = nullptr);
    void setReport(const MatchReport& report);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Bar
    {
        QString name, percent, bytes;
        double level = 0.0; ///< 0..1
        QColor color;
    };
    int rowHeight() const;

    QVector<Bar> m_bars;
};

} // namespace lxcolor

#endif
