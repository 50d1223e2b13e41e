#include "sequencediff.h"

#include <algorithm>
#include <vector>

namespace simulated {

namespace {

// The number of differences after which the best alignment so far is kept and the rest is aligned anew.
constexpr int mostDifferences = 400;

constexpr int unreachable = -1;

// E. W. Myers, "An O(ND) Difference Algorithm and Its Variations", 1986. `x` counts elements of the left
// sequence, `y` those of the right one, and k = x - y is a diagonal. m_reached[d] has the largest x on each
// diagonal that d differences reach.
class Aligner
{
public:
    Aligner(const QVector<int> &left, const QVector<int> &right, int leftStart, int rightStart)
        : m_left(left)
        , m_right(right)
        , m_x0(leftStart)
        , m_y0(rightStart)
        , m_width(left.size() - leftStart)
        , m_height(right.size() - rightStart)
    {}

    void align()
    {
        int best = 0;
        for (int d = 0; d <= mostDifferences; ++d) {
            m_reached.emplace_back(size_t(2 * d + 1), unreachable);
            best = -d;
            for (int k = -d; k <= d; k += 2) {
                const int x = slide(d == 0 ? 0 : enter(d, k), k);
                m_reached.back()[size_t(k) + size_t(d)] = x;
                if (x == m_width && x - k == m_height) {
                    walkBack(d, k);
                    return;
                }
                if (x != unreachable && progress(d, k) > progress(d, best))
                    best = k;
            }
        }
        walkBack(mostDifferences, best);
    }

    // After align(): the pairs, last one first, and the position that they reach.
    QVector<QPair<int, int>> pairs;
    int leftEnd = 0;
    int rightEnd = 0;

private:
    int reached(int d, int k) const
    {
        return k < -d || k > d ? unreachable : m_reached[size_t(d)][size_t(k) + size_t(d)];
    }

    int progress(int d, int k) const
    {
        const int x = reached(d, k);
        return x == unreachable ? unreachable : x + (x - k);
    }

    // True when the last difference before (d, k) leaves out an element of the right sequence.
    bool comesFromAbove(int d, int k) const
    {
        const int fromLeft = reached(d - 1, k - 1);
        const int fromAbove = reached(d - 1, k + 1);
        const bool canLeft = fromLeft != unreachable && fromLeft < m_width;
        const bool canAbove = fromAbove != unreachable && fromAbove - k <= m_height;
        return canAbove && (!canLeft || fromLeft < fromAbove);
    }

    int enter(int d, int k) const
    {
        if (comesFromAbove(d, k))
            return reached(d - 1, k + 1);
        const int fromLeft = reached(d - 1, k - 1);
        return fromLeft == unreachable || fromLeft >= m_width ? unreachable : fromLeft + 1;
    }

    int slide(int x, int k) const
    {
        while (x != unreachable && x < m_width && x - k < m_height &&
               m_left.at(m_x0 + x) == m_right.at(m_y0 + x - k))
            ++x;
        return x;
    }

    void walkBack(int d, int k)
    {
        int x = reached(d, k);
        leftEnd = m_x0 + x;
        rightEnd = m_y0 + x - k;
        for (; d >= 0; --d) {
            const int entered = d == 0 ? 0 : enter(d, k);
            for (; x > entered; --x)
                pairs.append({m_x0 + x - 1, m_y0 + x - k - 1});
            if (d == 0)
                return;
            k += comesFromAbove(d, k) ? 1 : -1;
            x = reached(d - 1, k);
        }
    }

    const QVector<int> &m_left;
    const QVector<int> &m_right;
    int m_x0;
    int m_y0;
    int m_width;
    int m_height;
    std::vector<std::vector<int>> m_reached;
};

} // namespace

QVector<QPair<int, int>> commonPositions(const QVector<int> &left, const QVector<int> &right)
{
    QVector<QPair<int, int>> all;
    int x = 0;
    int y = 0;
    while (x < left.size() && y < right.size()) {
        Aligner aligner(left, right, x, y);
        aligner.align();
        std::reverse(aligner.pairs.begin(), aligner.pairs.end());
        all += aligner.pairs;
        x = aligner.leftEnd;
        y = aligner.rightEnd;
    }
    return all;
}

} // namespace simulated
