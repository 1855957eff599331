#pragma once

#include <QColor>
#include <QList>
#include <QRect>
#include <QString>

namespace vasclip::paper {

/// What a text is set in; the typeface is one.
struct Face
{
    int size = 180; ///< of the em
    bool bold = false;
    bool operator==(const Face&) const = default;
};

/// One line of text where its baseline begins, whatever direction it is read in.
struct TextItem
{
    QPoint at;
    int width = 0;
    QString text;
    Face face;
    QRgb ink = 0xff000000;
};

/// A rule, a band of tone or the frame around a picture.
struct BoxItem
{
    QRect box;
    QRgb fill = 0;   ///< none where it is transparent
    QRgb border = 0; ///< a hair line of it around, none where it is transparent
};

/// A picture within its box, in its proportions and in the middle.
struct PictureItem
{
    QRect box;
    QString name; ///< what a PictureSource is asked for
};

/// What stands on a page: boxes below, pictures above them, texts on top.
struct Page
{
    QList<BoxItem> boxes;
    QList<PictureItem> pictures;
    QList<TextItem> texts;

    /// Takes what another has, moved.
    void Take(const Page& other, QPoint by)
    {
        for (BoxItem item : other.boxes) {
            item.box.translate(by);
            boxes.append(item);
        }
        for (PictureItem item : other.pictures) {
            item.box.translate(by);
            pictures.append(std::move(item));
        }
        for (TextItem item : other.texts) {
            item.at += by;
            texts.append(std::move(item));
        }
    }
};

} // namespace vasclip::paper
