#ifndef WHITEPOINTPLOT_P_H
#define WHITEPOINTPLOT_P_H

#include "ChromaticityDiagram.h"
#include "FixtureGamut.h"

#include <QPixmap>
#include <QWidget>

namespace lxcolor {

/// The diagram of WhitePointPicker with the white point as a ring that can be moved. The diagram itself is painted when
/// it changes, and kept.
class WhitePointPlot : public QWidget
{
    Q_OBJECT

public:
    explicit WhitePointPlot(QWidget* parent = nullptr);

    int cct() const { return m_cct; }
    int tint() const { return m_tint; }
    bool isZoomed() const { return m_isZoomed; }
    ColorUtils::TonematchProfileID fixture() const { return m_fixture; }
    QPointF xy() const;
    FixtureGamut::Place place() const;
    bool hasGamut() const { return !m_gamut.isEmpty(); }

    /// False when that is the white point already. Limits both.
    bool setWhitePoint(int cct, int tint);
    void setFixture(ColorUtils::TonematchProfileID fixture);
    void setZoomed(bool zoomed);

    QSize sizeHint() const override { return {420, 360}; }
    QSize minimumSizeHint() const override { return {180, 180}; }

Q_SIGNALS:
    /// The user has moved the white point.
    void moved();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QRect diagramRect() const;
    QRectF shownRange() const;
    QRectF xyRect() const;
    QPointF pixelOf(QPointF xy) const;
    void moveTo(QPoint pixel);
    void moveBy(int cct, int tint);
    void updateDiagram();
    void paintMarks(QPainter& painter) const;

    int m_cct = 3200;
    int m_tint = 0;
    bool m_isZoomed = true;
    ColorUtils::TonematchProfileID m_fixture = ColorUtils::ProfileGenericRGB;
    FixtureGamut m_gamut{ColorUtils::ProfileGenericRGB};
    ChromaticityDiagram m_diagram;
    QPixmap m_painted; ///< The diagram; null when it has to be painted anew.
    int m_wheelDelta = 0;
};

} // namespace lxcolor

#endif
