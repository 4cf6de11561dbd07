#pragma once

// An image strip of the console's resources: the bitmap's number, the width of one image
// and the colour that shows through. The front end decides how an image looks; the widgets
// carry only the image numbers.
class SYImageList {
public:
    // Gives 0 for a zero bitmap number or a width below 1.
    int Create(unsigned bitmapId, int imageWidth, int grow, unsigned maskColour);
    bool IsCreated() const { return m_bitmapId != 0; }
    unsigned BitmapId() const { return m_bitmapId; }
    int ImageWidth() const { return m_imageWidth; }
    int Grow() const { return m_grow; }
    unsigned MaskColour() const { return m_maskColour; }

private:
    unsigned m_bitmapId = 0;
    int m_imageWidth = 0;
    int m_grow = 0;
    unsigned m_maskColour = 0;
};
