#include "support/wi_fixture.h"

#include <cmath>
#include <random>
#include <vector>

namespace {

struct box {
    int x, y, w, h;
    bool operator==(const box &) const = default;
};

std::ostream &operator<<(std::ostream &out, const box &b)
{
    return out << '(' << b.x << ", " << b.y << ", " << b.w << ", " << b.h << ')';
}

box place(HWND window)
{
    const RECT r = place_of(window);
    return {static_cast<int>(r.left), static_cast<int>(r.top), static_cast<int>(r.right - r.left),
            static_cast<int>(r.bottom - r.top)};
}

wi_obj *leaf(wi_obj *parent)
{
    return wi_mk_label(parent, "", -1);
}

TEST(Layout, PlacesByProportion)
{
    wi_obj *form = wi_mk_form(nullptr, 100, 100), *top = form->shell;
    wi_obj *field = leaf(wi_form_parent(form, 10, 40, 90, 60));
    wi_obj *row = wi_mk_rectary(wi_form_parent(form, 10, 70, 90, 90), 1, 2, 0.1, 0.05);
    wi_obj *ok = leaf(row), *cancel = leaf(row);
    wi_obj *reversed = leaf(wi_form_parent(form, 90, 10, 10, 30));
    wi_obj *thirds = wi_mk_rectary(wi_form_parent(form, 0, 0, 100, 100), 2, 3, 0, 0);
    wi_obj *cell[6];
    for (wi_obj *&c : cell)
        c = leaf(thirds);
    wi_obj *crop = wi_mk_crop(wi_form_parent(form, 0, 0, 100, 100), -0.1, 0.2, 0.3, -0.15), *cropped = leaf(crop);
    wi_obj *drect = wi_mk_drect(wi_form_parent(form, 0, 0, 100, 100), 0, 0.25);
    wi_obj *upper = leaf(drect), *lower = leaf(drect);
    wi_obj *inner = wi_mk_drect(wi_mk_crop(wi_form_parent(form, 20, 20, 80, 80), 0.1, 0, 0.25, 0), 1, 0.3);
    wi_obj *left = leaf(inner), *right = leaf(inner);
    wi_obj *frame = wi_mk_frame(wi_form_parent(form, 0, 0, 100, 100)), *framed = leaf(frame);
    wi_obj *labelled = wi_mk_strfld(wi_form_parent(form, 0, 0, 100, 100), "l", 0.01);
    const int cx = GetSystemMetrics(SM_CXEDGE), cy = GetSystemMetrics(SM_CYEDGE);

    SendMessageA(top->handle, WM_SIZE, SIZE_RESTORED, MAKELPARAM(350, 151));
    EXPECT_EQ(place(field->handle), (box{35, 60, 280, 30}));
    EXPECT_EQ(place(ok->handle), (box{35 + 14, 105 + 1, 112, 28}));
    EXPECT_EQ(place(cancel->handle), (box{35 + 154, 105 + 1, 112, 28}));
    EXPECT_EQ(place(reversed->handle), (box{315, 15, 280, 30}));
    EXPECT_EQ(place(cell[5]->handle), (box{232, 75, 116, 75})) << "the remainders stay empty";
    EXPECT_EQ(place(cropped->handle), (box{105, 15, 350 - 52 - 105, 151 - 30 - 15}));
    EXPECT_EQ(place(upper->handle), (box{0, 0, 350, 37}));
    EXPECT_EQ(place(lower->handle), (box{0, 37, 350, 114}));
    EXPECT_EQ(place(left->handle), (box{70 + 52, 30 + 9, 47, 81}));
    EXPECT_EQ(place(right->handle), (box{70 + 52 + 47, 30 + 9, 111, 81}));
    EXPECT_EQ(place(frame->handle), (box{0, -2 * cy, 350, 151 + 2 * cy}));
    EXPECT_EQ(place(framed->handle), (box{cx, 3 * cy, 350 - 2 * cx, 151 - 4 * cy}));
    EXPECT_EQ(place(labelled->obj.strfld->labelarea), (box{0, 0, 3, 151}));
    EXPECT_EQ(place(labelled->obj.strfld->editarea), (box{3, 0, 347, 151}));

    wi_drect_split(drect, 0.75);
    EXPECT_EQ(place(upper->handle), (box{0, 0, 350, 37})) << "a new split waits for the next layout";
    onresize(top, 0, 0, 350, 151);
    EXPECT_EQ(place(upper->handle), (box{0, 0, 350, 113}));
}

// A random tree of containers over a fixed set of windows, with the place that each leaf must get. Objects are made by
// hand, so that a hundred thousand trees need only as many windows as one.
class random_tree {
public:
    random_tree(wi_obj *w, const std::vector<wi_obj *> &p, unsigned seed, const box &all)
        : window(w), pool(p), random(seed)
    {
        for (wi_obj *l : pool)
            l->parent = nullptr;
        window->child = nullptr;
        grow(window, all, 0);
    }

    ~random_tree() { window->child = nullptr; }

    std::vector<box> places(int w, int h) const
    {
        onresize(window, 0, 0, w, h);
        std::vector<box> found;
        for (std::size_t i = 0; i < expected.size(); ++i)
            found.push_back(place(pool[i]->handle));
        return found;
    }

    std::vector<box> expected;

private:
    int pick(int n) { return std::uniform_int_distribution(0, n - 1)(random); }
    double fraction() { return std::uniform_real_distribution(0.03F, 0.48F)(random); } // objects keep a float
    static int part(int extent, double f) { return static_cast<int>(extent * f); }

    void grow(wi_obj *parent, const box &b, int depth)
    {
        const int kind = depth > 3 ? 0 : pick(6), rows = 1 + pick(3), columns = 1 + pick(3);
        const double f = fraction(), g = fraction();
        if (expected.size() == pool.size())
            return;
        if (kind == 0) {
            addchild(pool[expected.size()], parent);
            expected.push_back(b);
        } else if (kind == 1) {
            const int top = part(b.h, f), left = part(b.w, g);
            grow(wi_mk_crop(parent, f, g, g, f),
                 {b.x + left, b.y + top, b.w - left - part(b.w, f), b.h - top - part(b.h, g)}, depth + 1);
        } else if (kind == 2) {
            wi_obj *area = wi_form_parent(wi_mk_form(parent, 10, 20), 0, 0, 10 * f, 20 * g);
            const double x = b.x + b.w * area->obj.null->x1relative, y = b.y + b.h * area->obj.null->y1relative;
            grow(area, {b.x, b.y, part(1, x) - b.x, part(1, y) - b.y}, depth + 1);
        } else if (kind == 3) {
            wi_obj *grid = wi_mk_rectary(parent, rows, columns, f, g);
            const int w = b.w / columns, h = b.h / rows, x = part(w, f), y = part(h, g);
            for (int i = 0, last = pick(rows * columns); i <= last; ++i)
                grow(grid, {b.x + i % columns * w + x, b.y + i / columns * h + y, w - 2 * x, h - 2 * y}, depth + 1);
        } else {
            wi_obj *drect = wi_mk_drect(parent, kind - 4, f);
            const bool across = kind == 5;
            const int w = across ? part(b.w, f) : b.w, h = across ? b.h : part(b.h, f);
            grow(drect, {b.x, b.y, w, h}, depth + 1);
            grow(drect, across ? box{b.x + w, b.y, b.w - w, h} : box{b.x, b.y + h, w, b.h - h}, depth + 1);
        }
    }

    wi_obj *window;
    const std::vector<wi_obj *> &pool;
    std::mt19937 random;
};

// In these trees a container's parts never overlap, so no two leaves do.
void expect_apart(const std::vector<box> &boxes)
{
    for (const box &a : boxes)
        for (const box &b : boxes)
            ASSERT_FALSE(&a != &b && a.x < b.x + b.w && b.x < a.x + a.w && a.y < b.y + b.h && b.y < a.y + a.h)
                << a << b;
}

TEST(Layout, OfRandomTreesIsTheArithmeticAndShrinkingIsUndoneByGrowing)
{
    wi_obj *window = wi_mk_dovapp(nullptr, "layout");
    std::vector<wi_obj *> pool;
    for (int i = 0; i < 4; ++i) {
        window->child = nullptr;
        pool.push_back(leaf(window));
    }
    std::mt19937 random(20261);
    for (unsigned seed = 0; seed < 100000; ++seed) {
        const int w = static_cast<int>(random() % 2000), h = static_cast<int>(random() % 1500);
        const random_tree tree(window, pool, seed, {0, 0, w, h});
        ASSERT_EQ(tree.places(w, h), tree.expected) << "seed " << seed << " at " << w << " x " << h;
        ASSERT_NO_FATAL_FAILURE(expect_apart(tree.expected)) << "seed " << seed;
        if (seed % 10)
            continue;
        tree.places(w / 3, h / 7);
        ASSERT_EQ(tree.places(w, h), tree.expected) << "seed " << seed << " after shrinking and growing";
    }
}

TEST(Layout, OfAShownWindowFollowsItsSize)
{
    wi_obj *form = wi_mk_form(nullptr, 10, 10);
    wi_obj *label = leaf(wi_form_parent(form, 1, 2, 5, 10));
    wi_on(form);
    for (const int size : {400, 150, 400}) {
        SetWindowPos(form->shell->handle, nullptr, 0, 0, size, size + 50, SWP_NOMOVE | SWP_NOZORDER);
        pump();
        RECT client;
        GetClientRect(form->shell->handle, &client);
        const int x = static_cast<int>(client.right * 0.1), y = static_cast<int>(client.bottom * 0.2);
        EXPECT_EQ(place(label->handle),
                  (box{x, y, static_cast<int>(client.right * 0.5) - x, static_cast<int>(client.bottom) - y}));
    }
    wi_obj *late = leaf(wi_form_parent(form, 0, 0, 1, 1));
    wi_off(form);
    wi_on(form);
    EXPECT_GT(place(late->handle).w, 20) << "what was made since the last layout is placed when the window is shown";
    wi_off(form);
}

TEST(Layout, SurvivesExtremeFractions)
{
    wi_obj *form = wi_mk_form(nullptr, 1e-300, 1e300);
    wi_obj *crop = wi_mk_crop(wi_form_parent(form, 0, 0, 1e-300, 1e300), 1e300, 1e300, -1e300, 1e-300);
    for (int i = 0; i < 40; ++i)
        crop = wi_mk_crop(crop, 1e300, 0, NAN, INFINITY);
    wi_obj *inner = wi_mk_form(crop, 1, 1);
    leaf(wi_form_parent(inner, 1, 0, 0, 1));
    for (const int extent : {0, 1, 32767, -5})
        onresize(form->shell, 0, 0, extent, extent);
}

} // namespace
