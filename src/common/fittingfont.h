#ifndef AIRLUME_COMMON_FITTINGFONT_H
#define AIRLUME_COMMON_FITTINGFONT_H

class QFont;

/// `font` or, where a line of it is higher than `height`, the largest size of it that is not; at
/// least 8 pixels. For places whose height is fixed while the desktop's font is not. `height` in
/// logical pixels. GUI thread only.
QFont FittingFont(QFont font, int height);

#endif
