#include "section/gl_ellipse.h"

#include "section/geometry.h"

#include <cmath>

namespace
{

// The midpoint method: x and y advance by whole units from the top of the ellipse to its side.
class MidpointEllipse
{
public:
    explicit MidpointEllipse(const GLEllipseData& ellipse)
        : center_(ellipse.center)
        , a2_(ellipse.radiusX * ellipse.radiusX)
        , b2_(ellipse.radiusY * ellipse.radiusY)
        , y_(ellipse.radiusY)
        , py_(2 * a2_ * ellipse.radiusY)
        , ry_(ellipse.radiusY)
    {
    }

    std::vector<Vec3> points()
    {
        plot();
        flatPart();
        steepPart();
        return std::move(points_);
    }

private:
    void flatPart()
    {
        float p = std::round(b2_ - a2_ * ry_ + 0.25F * a2_);
        while (py_ > px_) {
            x_ += 1;
            px_ += 2 * b2_;
            if (!(p < drawingTolerance)) {
                y_ -= 1;
                py_ -= 2 * a2_;
                p += px_ + b2_ - py_;
            } else {
                p += px_ + b2_;
            }
            plot();
        }
    }

    void steepPart()
    {
        float p = std::round(b2_ * (x_ + 0.5F) * (x_ + 0.5F) + a2_ * (y_ - 1) * (y_ - 1) - a2_ * b2_);
        while (y_ > drawingTolerance) {
            y_ -= 1;
            py_ -= 2 * a2_;
            if (!(p > drawingTolerance)) {
                x_ += 1;
                px_ += 2 * b2_;
                p += a2_ - py_ + px_;
            } else {
                p += a2_ - py_;
            }
            plot();
        }
    }

    void plot()
    {
        points_.push_back({center_.x + x_, center_.y + y_, 0});
        points_.push_back({center_.x - x_, center_.y + y_, 0});
        points_.push_back({center_.x + x_, center_.y - y_, 0});
        points_.push_back({center_.x - x_, center_.y - y_, 0});
    }

    Vec3 center_;
    float a2_;
    float b2_;
    float x_ = 0;
    float y_;
    float px_ = 0;
    float py_;
    float ry_;
    std::vector<Vec3> points_;
};

bool hasOutline(const GLEllipseData& ellipse)
{
    const auto small = [](float radius) { return std::fabs(radius) <= GLEllipseDB::largestOutlineRadius; };
    return small(ellipse.radiusX) && small(ellipse.radiusY);
}

} // namespace

const std::vector<Vec3>& GLEllipseDB::outline() const
{
    if (!outlineMade_ && hasOutline(data_))
        outline_ = MidpointEllipse(data_).points();
    outlineMade_ = true;
    return outline_;
}
