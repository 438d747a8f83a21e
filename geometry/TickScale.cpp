#include "geometry/TickScale.h"

#include <algorithm>
#include <cmath>

std::vector<int> lm::TickScale::marks(int interval) const
{
    const long long range = static_cast<long long>(maximum) - minimum;
    if (interval <= 0 || range <= 0 || span() <= 0)
        return {};
    const long long n = (range - 1 + interval) / interval;
    const long long step = std::max<long long>(1, n / (4LL * span()));   // marks denser than pixels are the same picture
    const int halfThickness = lineThickness / 2;
    const double pixels = static_cast<double>(span()) * interval / static_cast<double>(range);
    std::vector<int> ys;
    for (long long i = 0; i <= n; i += step) {
        const double up = static_cast<double>(i) * pixels - halfThickness + 0.5;
        ys.push_back(height - marginBottom - static_cast<int>(std::trunc(up)));
    }
    return ys;
}

int lm::TickScale::labelOfMinimum(int textHeight) const
{
    return marginBottom < textHeight / 2 ? height - textHeight : height - marginBottom - textHeight / 2;
}

int lm::TickScale::labelOfMaximum(int textHeight) const { return marginTop < textHeight / 2 ? 0 : marginTop - textHeight / 2; }

int lm::TickScale::labelOf(int value, int textHeight) const
{
    const float range = static_cast<float>(maximum) - static_cast<float>(minimum);
    if (range == 0)
        return 0;
    const float fromTop = (1 - (static_cast<float>(value) - static_cast<float>(minimum)) / range) * static_cast<float>(span());
    return std::max(0, marginTop + static_cast<int>(std::clamp(fromTop, -1e6F, 1e6F)) - textHeight / 2);
}
