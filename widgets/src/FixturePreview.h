#ifndef FIXTUREPREVIEW_H
#define FIXTUREPREVIEW_H

#include "LXColor.h"
#include "LXColorWidgetsExport.h"
#include "MatchReport.h"

#include <QWidget>

#include <memory>

/**
 * What becomes of a colour on a fixture, at a glance: the light asked for beside the light that comes out, the level of
 * each emitter with the DMX bytes that it is sent, and the sentence of MatchReport.
 *
 * The fixture, its IO mode and the resolution are chosen in the widget, or by setTarget().
 */
class LXCOLOR_WIDGETS_EXPORT FixturePreview : public QWidget
{
    Q_OBJECT

public:
    /// No colour, on generic RGB, with colours matched.
    explicit FixturePreview(QWidget* parent = nullptr);
    ~FixturePreview() override;

    /// The colour that is shown.
    LXColor color() const;
    /// The fixture, and how it is driven.
    MatchReport::Target target() const;
    /// What is shown.
    const MatchReport& report() const;

public Q_SLOTS:
    void setColor(const LXColor& color); ///< Any colour; an invalid one leaves the fixture dark.

public:
    /// A profile without a record counts as generic RGB, an IO mode that the fixture does not have as its default.
    void setTarget(const MatchReport::Target& target);

Q_SIGNALS:
    /// Another fixture, IO mode, resolution or way of matching was chosen.
    void targetChanged();

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
