#pragma once

#include "platform/basic/twips.h"

#include <QFont>
#include <QImage>
#include <QString>
#include <memory>
#include <optional>

class QPainter;

// One drawing surface with a pen, a font and a scale: a sheet of paper, or its picture on the screen. It measures without
// being drawn on. Lengths are in units of the scale unless they are called twips (1440 to the inch).
namespace vorel::printer {

inline constexpr double twipsPerInch = 1440;
inline constexpr double twipsPerPoint = 20;
inline constexpr double twipsPerPixel = basic::twipsPerPixel;

enum ScaleMode { UserScale = 0, Twips, Points, Pixels, Characters, Inches, Millimetres, Centimetres };
enum Orientation { Portrait = 1, Landscape = 2 };
enum class LineShape { Line, Box, FilledBox };

// A sheet in twips, upright, with the border on which nothing is drawn.
struct Paper {
    double width = 0;
    double height = 0;
    double left = 0, top = 0, right = 0, bottom = 0;
    Paper scaled(double factor) const;
};

// The sixteen colours by number (0 black ... 15 bright white), as 0xBBGGRR; numbers beyond give black.
quint32 QBColor(int number);

class Page {
public:
    explicit Page(const Paper &paper);
    virtual ~Page();
    Page(const Page &) = delete;
    Page &operator=(const Page &) = delete;

    // Where drawing goes until nullptr resets it; pixelsPerTwip: of the painter's device. Not owned.
    void drawOn(QPainter *painter, double pixelsPerTwip);

    void setPaper(const Paper &paper);
    const Paper &paper() const { return m_paper; }          // upright, whatever the orientation
    int Orientation() const { return m_orientation; }
    virtual void setOrientation(int orientation);           // neither 1 nor 2: ignored
    double Width() const;                                   // of the whole sheet as it lies, twips
    double Height() const;

    int ScaleMode() const { return m_scaleMode; }
    void setScaleMode(int mode);                            // 1 to 7, others are ignored; the pen stays at its place
    double ScaleWidth() const;                              // of the part that can be drawn on
    double ScaleHeight() const;
    void setScaleWidth(double width);                       // a scale of the user's own across; 0 and less: ignored

    double CurrentX() const { return m_penX / m_unitX; }
    double CurrentY() const { return m_penY / m_unitY; }
    void setCurrentX(double x) { m_penX = x * m_unitX; }
    void setCurrentY(double y) { m_penY = y * m_unitY; }

    const QString &FontName() const { return m_fontName; }
    void setFontName(const QString &name);                  // "": ignored
    double FontSize() const { return m_fontSize; }
    void setFontSize(double points);                        // kept between 1 and 2160; not a number: ignored
    bool FontBold() const { return m_bold; }
    void setFontBold(bool on);
    bool FontUnderline() const { return m_underline; }
    void setFontUnderline(bool on);
    double TextWidth(const QString &text) const;
    double TextHeight(const QString &text) const;           // of one line, and as often as the text has lines

    quint32 ForeColor() const { return m_foreColor; }       // 0xBBGGRR
    void setForeColor(quint32 colour) { m_foreColor = colour; }
    int DrawMode = 13;                                      // 13 draws; 11 draws nothing; 1 and 16 draw black and white
    int DrawStyle = 0;                                      // 0 solid, 1 dash, 2 dot, 3 dash-dot, 4 dash-dot-dot, 5 none
    int DrawWidth = 1;
    int FillStyle = 1;                                      // 0: boxes are filled with FillColor; 1: they are not
    quint32 FillColor = 0;
    bool FontTransparent = true;

    void Print(const QString &text);                        // one line with its top left at the pen
    // A line or box between two points; leaves the pen at the second one. Without a colour: ForeColor. A FilledBox is
    // filled with the colour that is given.
    void Line(double x1, double y1, double x2, double y2, std::optional<quint32> colour = {},
              LineShape shape = LineShape::Line);
    void Circle(double x, double y, double radius, std::optional<quint32> colour = {});
    // At its natural size (96 dots to the inch) where width or height is 0 or less.
    void PaintPicture(const QImage &picture, double x, double y, double width = 0, double height = 0);

protected:
    virtual QPainter *surface() { return m_painter; }       // nullptr: nothing is drawn

private:
    struct Metrics;
    const Metrics &metrics() const;
    QPen pen(quint32 colour) const;
    std::optional<quint32> modeColour(quint32 colour) const;

    bool isLying() const { return m_orientation == Landscape; }
    double borderX() const;
    double borderY() const;

    Paper m_paper;
    int m_orientation = Portrait;
    int m_scaleMode = Twips;
    double m_unitX = 1, m_unitY = 1;                        // twips to a unit
    double m_penX = 0, m_penY = 0;                          // twips
    QString m_fontName;
    double m_fontSize = 10;
    bool m_bold = false, m_underline = false;
    quint32 m_foreColor = 0;
    QPainter *m_painter = nullptr;
    double m_pixelsPerTwip = 1 / twipsPerPixel;
    mutable std::shared_ptr<const Metrics> m_metrics;
};

}
