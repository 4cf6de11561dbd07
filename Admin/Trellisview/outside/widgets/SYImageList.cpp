#include "outside/widgets/SYImageList.h"

int SYImageList::Create(unsigned bitmapId, int imageWidth, int grow, unsigned maskColour) {
    if (bitmapId == 0 || imageWidth < 1)
        return 0;
    m_bitmapId = bitmapId;
    m_imageWidth = imageWidth;
    m_grow = grow;
    m_maskColour = maskColour;
    return 1;
}
