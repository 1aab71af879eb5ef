#include "TestBrushProvider.h"

#include "core/ColorBrush.h"
#include "core/GradientBrush.h"

namespace TavoTest {

using namespace TavoLib;

TestBrushProvider::TestBrushProvider(TestContents contents)
    : StandardBrushProvider(StandardBrushProvider::Empty)
{
    if (contents == Empty)
        return;
    addColor(1, "Black", Qt::black);
    addColor(2, "White", Qt::white);
    addColor(3, "Red", Qt::red);
    addColor(4, "Cyan", QColor(0, 174, 239));
    addBrush(5, "Registration", new ColorBrush(Qt::black, true));
    addBrush(10, "Linear Grey",
        new GradientBrush(GradientBrush::Linear, { { 0.0, Qt::black }, { 1.0, Qt::white } }));
    addBrush(11, "Radial Red",
        new GradientBrush(GradientBrush::Radial, { { 0.0, Qt::white }, { 1.0, Qt::red } }));
    addAlias(50, 3);
}

TestBrushProvider::~TestBrushProvider() = default;

} // namespace TavoTest
