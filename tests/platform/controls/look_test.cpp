#include "platform/controls/colours.h"
#include "platform/controls/look.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace vorel;

namespace {

struct Ground {
    QString name;
    QColor window, base, text;
};

// Light, dark, and colours that users choose; the disabled colours as faint as a desktop may give them.
std::vector<Ground> grounds()
{
    return {{u"light"_s, QColor(239, 239, 239), Qt::white, Qt::black},
            {u"dark"_s, QColor(42, 46, 50), QColor(27, 30, 32), QColor(252, 252, 252)},
            {u"black"_s, Qt::black, Qt::black, Qt::white},
            {u"cyan"_s, QColor(0, 255, 255), QColor(255, 255, 0), Qt::black},
            {u"gray"_s, QColor(128, 128, 128), QColor(128, 128, 128), Qt::white}};
}

QPalette paletteOf(const Ground &ground)
{
    QPalette made;
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const bool faint = group == QPalette::Disabled;
        made.setColor(group, QPalette::Window, ground.window);
        made.setColor(group, QPalette::Base, ground.base);
        made.setColor(group, QPalette::Button, ground.window);
        for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            made.setColor(group, role, faint ? controls::blend(ground.window, ground.text, 0.1) : ground.text);
        made.setColor(group, QPalette::PlaceholderText, ground.base);
    }
    return made;
}

// The colour with the most contrast to the background within a part of the widget.
double inkOf(QWidget &widget, const QRect &part, const QColor &ground)
{
    const QImage seen = widget.grab().toImage();
    double most = 1;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            most = std::max(most, controls::contrast(seen.pixelColor(x, y), ground));
    return most;
}

}

TEST(Look, ControlsStandOutFromAnyGround)
{
    controls::LookStyle style(u"fusion"_s);
    for (const Ground &ground : grounds()) {
        SCOPED_TRACE(qPrintable(ground.name));
        const auto shown = [&](QWidget &widget) {
            widget.setStyle(&style);
            widget.setPalette(paletteOf(ground));
            widget.resize(160, 60);
        };
        for (const bool enabled : {true, false}) {
            QCheckBox check;
            QRadioButton radio;
            for (QAbstractButton *button : {static_cast<QAbstractButton *>(&check), static_cast<QAbstractButton *>(&radio)}) {
                shown(*button);
                button->setEnabled(enabled);
                QStyleOptionButton option;
                option.initFrom(button);
                const QRect box = style.subElementRect(button == &check ? QStyle::SE_CheckBoxIndicator
                                                                        : QStyle::SE_RadioButtonIndicator, &option, button);
                EXPECT_GE(inkOf(*button, box, ground.window), 3.0) << "the border";
                const QRect middle = box.adjusted(4, 4, -4, -4);
                const QColor fill = button->grab().toImage().pixelColor(box.center());
                EXPECT_LT(inkOf(*button, middle, fill), 1.1) << "empty";
                button->setChecked(true);
                EXPECT_GE(inkOf(*button, middle, fill), 3.0) << "the mark";
            }
        }
        QGroupBox group;
        shown(group);
        EXPECT_GE(inkOf(group, {0, 20, 2, 20}, ground.window), 3.0) << "the frame";
        QLabel label(u"Insured"_s);
        shown(label);
        EXPECT_GE(inkOf(label, label.rect(), ground.window), 3.0);
        label.setEnabled(false);
        EXPECT_GE(inkOf(label, label.rect(), ground.window), 2.9) << "disabled; its pixels are smoothed";
    }
}

TEST(Look, ThePaletteIsCorrectedWhereTextCannotBeRead)
{
    controls::LookStyle style(u"fusion"_s);
    for (const Ground &ground : grounds()) {
        QPalette palette = paletteOf(ground);
        style.polish(palette);
        EXPECT_GE(controls::contrast(palette.color(QPalette::PlaceholderText), ground.base), 4.5) << qPrintable(ground.name);
        for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::ButtonText})
            EXPECT_GE(controls::contrast(palette.color(QPalette::Disabled, role), ground.window), 3.0) << qPrintable(ground.name);
        controls::setTextGround(palette, ground.window);
        for (const QPalette::ColorRole role : {QPalette::Text, QPalette::PlaceholderText})
            EXPECT_GE(controls::contrast(palette.color(role), ground.window), 4.5) << qPrintable(ground.name);
    }
}
