#pragma once

#include <QPalette>
#include <QProxyStyle>

// What the toolkit's own style draws too faintly, above all on dark grounds: check boxes, radio buttons, the frames of
// groups, disabled labels, placeholders. Everything is computed from the background it is drawn on, so that it holds in any
// palette and on a screen with a colour of its own.
namespace vorel::controls {

// The least contrasts: of what belongs to a control, and of text to be read.
inline constexpr double leastForControls = 3.0, leastForText = 4.5;

// The colour nearest to the background, on the way to the text's, that has the contrast.
QColor atLeast(double contrast, const QColor &ground, const QColor &text);
// The colour of placeholders on a background.
QColor placeholderOn(const QColor &ground);
// Text boxes' background with the text and the placeholder that can be read on it.
void setTextGround(QPalette &palette, const QColor &ground);

// Over the style that the desktop gives. One other than Qt's own draws its controls itself.
class LookStyle : public QProxyStyle {
    Q_OBJECT
public:
    explicit LookStyle(const QString &base = {});       // the base's key, e.g. "fusion"; "" = the desktop's

    using QProxyStyle::polish;
    void polish(QPalette &palette) override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
    void drawItemText(QPainter *painter, const QRect &place, int flags, const QPalette &palette, bool enabled,
                      const QString &text, QPalette::ColorRole role = QPalette::NoRole) const override;

private:
    bool m_drawsControls;
};

}
