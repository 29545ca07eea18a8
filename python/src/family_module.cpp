// SPDX-License-Identifier: MIT
// kivdataconvert._family: the 35 functions on the data types, and sets from polygons and shapes.
#include "arrays.h"
#include "family_values.h"

#include <KivData/KivLevelContours.h>
#include <KivData/KivRunBridges.h>
#include <KivData/KivRunPolygons.h>
#include <KivDataConvert/KivDataConvert.h>

#include <nanobind/operators.h>
#include <nanobind/stl/string.h>

#include <string>
#include <utility>
#include <vector>

namespace
{

using namespace kivpython;
using nb::literals::operator""_a;

// Raises KivError of a result code other than success.
void check(int code)
{
    if (code == KIVMV::KIVMV_OK) {
        return;
    }
    const nb::object type = nb::module_::import_("kivdataconvert._types").attr("KivError");
    const KIVMV::ResultDescription* description = KIVMV::DescribeResult(code);
    PyErr_SetObject(type.ptr(), nb::make_tuple(code, description->name, description->meaning).ptr());
    throw nb::python_error();
}

// The result of a call that writes to an output and returns a code.
template <class Out, class Call>
nb::object result_of(Call call)
{
    Out out;
    int code = 0;
    {
        const nb::gil_scoped_release release;
        code = call(&out);
    }
    check(code);
    return given(std::move(out));
}

template <class Call>
nb::object arrays_of(Call call)
{
    KivVarArray xs;
    KivVarArray ys;
    int code = 0;
    {
        const nb::gil_scoped_release release;
        code = call(&xs, &ys);
    }
    check(code);
    return nb::make_tuple(given(std::move(xs)), given(std::move(ys)));
}

// Functions by their form: one or two inputs and an output, wherever it stands.
template <class In, class Out>
auto taking_one(int (*function)(In&, Out*), const char* what)
{
    return [=](nb::handle in) {
        Taken<In> taken(in, what);
        return result_of<Out>([&](Out* out) { return function(taken.Value(), out); });
    };
}

template <class In>
auto taking_one(int (*function)(KivImage*, In&), const char* what)
{
    return [=](nb::handle in) {
        Taken<In> taken(in, what);
        return result_of<KivImage>([&](KivImage* out) { return function(out, taken.Value()); });
    };
}

template <class In>
auto taking_one(int (*function)(In&, KivVarArray*, KivVarArray*), const char* what)
{
    return [=](nb::handle in) {
        Taken<In> taken(in, what);
        return arrays_of([&](KivVarArray* xs, KivVarArray* ys) { return function(taken.Value(), xs, ys); });
    };
}

template <class In, class Out>
auto taking_two(int (*function)(In&, In&, Out*), const char* first, const char* second)
{
    return [=](nb::handle a, nb::handle b) {
        Taken<In> taken_a(a, first);
        Taken<In> taken_b(b, second);
        return result_of<Out>([&](Out* out) { return function(taken_a.Value(), taken_b.Value(), out); });
    };
}

std::vector<Run> runs_of_set(nb::handle runs)
{
    const KivRunView view = nb::cast<const KivRunSet&>(runs).Runs();
    return {view.begin(), view.end()};
}

void bind_regions(nb::module_& module)
{
    nb::class_<KivRegion> region(module, "Region", nb::is_final(),
                                 "Runs in a frame, in the order that they came in; nothing is sorted or joined.");
    region.def(
        "__init__",
        [](KivRegion* place, int width, int height, nb::handle runs) {
            std::vector<Run> list = nb::isinstance<KivRunSet>(runs) ? runs_of_set(runs) : runs_of(runs);
            new (place) KivRegion(width, height, std::move(list));
        },
        "width"_a, "height"_a, "runs"_a = nb::tuple(),
        nb::sig("def __init__(self, width: int, height: int, runs: numpy.typing.ArrayLike | RunSet = ()) -> None"),
        "A frame and its runs: a RunSet, or rows of (row, first column, last column). Raises ValueError for a negative "
        "size.");
    region.def_prop_ro("width", &KivRegion::Width, "Columns of the frame.");
    region.def_prop_ro("height", &KivRegion::Height, "Rows of the frame.");
    region.def_prop_ro(
        "runs",
        [](const KivRegion& r) {
            const auto* first = reinterpret_cast<const std::int32_t*>(r.Runs().data());
            const std::size_t count = r.Runs().size();
            return array_of(std::vector<std::int32_t>(first, first + 3 * count), {count, 3});
        },
        nb::sig("def runs(self) -> numpy.typing.NDArray[numpy.int32]"),
        "A copy of the runs: row, first column, last column.");
    region.def(
        "run_set", [](const KivRegion& r) { return KivRuns::SetOf(r); }, nb::sig("def run_set(self) -> RunSet"),
        "The pixels that any of the runs covers, inside of the frame and outside.");
    region.def(
        "__eq__", [](const KivRegion& a, const KivRegion& b) { return a == b; }, nb::is_operator(),
        nb::sig("def __eq__(self, other: object, /) -> bool"),
        "Whether frames and runs are the same, in the same order.");
    region.def("__repr__", [](const KivRegion& r) {
        return "Region(" + std::to_string(r.Width()) + " x " + std::to_string(r.Height()) + ", " +
               std::to_string(r.Runs().size()) + " runs)";
    });
}

void bind_rois(nb::module_& module)
{
    nb::class_<KivROI> roi(module, "ROI", nb::is_final(),
                           "A region of interest: a shape in a frame. Coordinates are (x, y), angles in degrees.");
    roi.def(nb::init<>(), "The empty shape in a frame of 0 x 0.");
    roi.def_static("rectangle", &KivROI::Rectangle, "left"_a, "top"_a, "right"_a, "bottom"_a, "width"_a, "height"_a,
                   "An upright rectangle by its sides, which belong to it.");
    roi.def_static("rotated_rectangle", &KivROI::RotatedRectangle, "cx"_a, "cy"_a, "length"_a, "breadth"_a, "angle"_a,
                   "width"_a, "height"_a, "A rectangle by its centre, its sides and the direction of the first one.");
    roi.def_static("circle", &KivROI::Circle, "cx"_a, "cy"_a, "radius"_a, "width"_a, "height"_a, "A disc.");
    roi.def_static("ellipse", &KivROI::Ellipse, "cx"_a, "cy"_a, "radius1"_a, "radius2"_a, "angle"_a, "width"_a,
                   "height"_a, "An ellipse by its half axes and the direction of the first one.");
    roi.def_static("ring", &KivROI::Ring, "cx"_a, "cy"_a, "inner"_a, "outer"_a, "width"_a, "height"_a,
                   "A disc with a hole.");
    roi.def_static("ring_sector", &KivROI::RingSector, "cx"_a, "cy"_a, "inner"_a, "outer"_a, "start"_a, "sweep"_a,
                   "width"_a, "height"_a, "A part of a ring, from an angle on.");
    roi.def_static(
        "polygon",
        [](nb::handle points, int width, int height) {
            return KivROI::Polygon(points_of(points, "points"), width, height);
        },
        "points"_a, "width"_a, "height"_a,
        nb::sig("def polygon(points: numpy.typing.ArrayLike, width: int, height: int) -> ROI"),
        "A polygon by the even-odd rule.");
    roi.def_static(
        "open_curve",
        [](nb::handle points, int width, int height) {
            return KivROI::OpenCurve(points_of(points, "points"), width, height);
        },
        "points"_a, "width"_a, "height"_a,
        nb::sig("def open_curve(points: numpy.typing.ArrayLike, width: int, height: int) -> ROI"),
        "A curve, which has no pixels.");
    roi.def_static(
        "mask",
        [](nb::handle runs, int width, int height) {
            return KivROI::Mask(nb::isinstance<KivRunSet>(runs) ? runs_of_set(runs) : runs_of(runs), width, height);
        },
        "runs"_a, "width"_a, "height"_a,
        nb::sig("def mask(runs: numpy.typing.ArrayLike | RunSet, width: int, height: int) -> ROI"),
        "The pixels of runs: a RunSet, or rows of (row, first column, last column).");
    roi.def_prop_ro("kind", &KivROI::ROIType,
                    "The code of the shape: 3 for the empty one, 8 for a mask, 10 for an open curve.");
    roi.def_prop_ro(
        "width", [](const KivROI& r) { return r.Parameters().Width(); }, "Columns of the frame.");
    roi.def_prop_ro(
        "height", [](const KivROI& r) { return r.Parameters().Height(); }, "Rows of the frame.");
    roi.def(
        "run_set", [](const KivROI& r) { return KivRuns::SetOf(r); }, nb::call_guard<nb::gil_scoped_release>(),
        nb::sig("def run_set(self) -> RunSet"),
        "The pixels whose centres lie in the shape or on its border; none for an open curve.");
    roi.def(
        "__eq__", [](const KivROI& a, const KivROI& b) { return a == b; }, nb::is_operator(),
        nb::sig("def __eq__(self, other: object, /) -> bool"), "Whether shapes and frames are the same.");
    roi.def("__repr__", [](const KivROI& r) {
        return "ROI(kind " + std::to_string(r.ROIType()) + ", " + std::to_string(r.Parameters().Width()) + " x " +
               std::to_string(r.Parameters().Height()) + ")";
    });
}

nb::tuple sorted_runs(nb::handle rows, nb::handle begins, nb::handle ends)
{
    Taken<KivVarArray> r(rows, "rows");
    Taken<KivVarArray> b(begins, "col_begins");
    Taken<KivVarArray> e(ends, "col_ends");
    KIVMV::radixsort(r.Value(), b.Value(), e.Value());
    return nb::make_tuple(given(std::move(r.Value())), given(std::move(b.Value())), given(std::move(e.Value())));
}

// The functions under their own names; what each does, by which codes, is said in KivDataConvert.h.
void bind_functions(nb::module_& module)
{
    using namespace KIVMV;
    module.def("KivRegionToVarArray", taking_one(KivRegionToVarArray, "region"), "region"_a,
               nb::sig("def KivRegionToVarArray(region: Region) -> tuple[GivenValues, GivenValues]"),
               "The columns and rows of a region's pixels.");
    module.def("KivVarArrayToRegion", taking_two(KivVarArrayToRegion, "xs", "ys"), "xs"_a, "ys"_a,
               nb::sig("def KivVarArrayToRegion(xs: Values, ys: Values) -> Region"),
               "The region of pixels by their columns and rows.");
    module.def("KivPointArrayToRegion", taking_one(KivPointArrayToRegion, "points"), "points"_a,
               nb::sig("def KivPointArrayToRegion(points: numpy.typing.ArrayLike) -> Region"),
               "The region of points, rounded to pixels.");
    module.def("KivRegionToPointArray", taking_one(KivRegionToPointArray, "region"), "region"_a,
               nb::sig("def KivRegionToPointArray(region: Region) -> numpy.typing.NDArray[numpy.float64]"),
               "The pixels of a region as points.");
    module.def("KivImageToRegion", taking_one(KivImageToRegion, "image"), "image"_a,
               nb::sig("def KivImageToRegion(image: numpy.typing.NDArray[typing.Any]) -> Region"),
               "The region of an image's pixels that are not 0.");
    module.def("KivBinImageToRegion", taking_one(KivBinImageToRegion, "image"), "image"_a,
               nb::sig("def KivBinImageToRegion(image: numpy.typing.NDArray[typing.Any]) -> Region"),
               "The region of a mask's pixels that are not 0.");
    module.def("KivRegionToBinImage", taking_one(KivRegionToBinImage, "region"), "region"_a,
               nb::sig("def KivRegionToBinImage(region: Region) -> numpy.typing.NDArray[typing.Any]"),
               "A mask of a region, of 0 and 255.");
    module.def(
        "KivImageToMatrix", taking_one(KivImageToMatrix, "image"), "image"_a,
        nb::sig("def KivImageToMatrix(image: numpy.typing.NDArray[typing.Any]) -> numpy.typing.NDArray[typing.Any]"),
        "An image's pixels as a matrix.");
    module.def(
        "KivMatrixToImage", taking_one(KivMatrixToImage, "matrix"), "matrix"_a,
        nb::sig("def KivMatrixToImage(matrix: numpy.typing.NDArray[typing.Any]) -> numpy.typing.NDArray[typing.Any]"),
        "A matrix as an 8-bit image: rounded, ties to even, and saturated.");
    module.def("KivContourToVarArray", taking_one(KivContourToVarArray, "contour"), "contour"_a,
               nb::sig("def KivContourToVarArray(contour: numpy.typing.ArrayLike) -> tuple[GivenValues, GivenValues]"),
               "The coordinates of a contour's points, rounded.");
    module.def("KivVarArrayToContour", taking_two(KivVarArrayToContour, "xs", "ys"), "xs"_a, "ys"_a,
               nb::sig("def KivVarArrayToContour(xs: Values, ys: Values) -> numpy.typing.NDArray[numpy.float64]"),
               "The contour of points by their coordinates.");
    module.def(
        "KivContourToPointArray", taking_one(KivContourToPointArray, "contour"), "contour"_a,
        nb::sig("def KivContourToPointArray(contour: numpy.typing.ArrayLike) -> numpy.typing.NDArray[numpy.float64]"),
        "A contour's points.");
    module.def(
        "KivPointArrayToContour", taking_one(KivPointArrayToContour, "points"), "points"_a,
        nb::sig("def KivPointArrayToContour(points: numpy.typing.ArrayLike) -> numpy.typing.NDArray[numpy.float64]"),
        "The contour of points.");
    module.def("KivRegionToContourArray", taking_one(KivRegionToContourArray, "region"), "region"_a,
               nb::sig("def KivRegionToContourArray(region: Region) -> list[numpy.typing.NDArray[numpy.float64]]"),
               "The borders of a region.");
    module.def("KivContourToRegion", taking_one(KivContourToRegion, "contour"), "contour"_a,
               nb::sig("def KivContourToRegion(contour: numpy.typing.ArrayLike) -> Region"),
               "The region that a contour encloses.");
    module.def("KivBinImageToContourArray", taking_one(KivBinImageToContourArray, "image"), "image"_a,
               nb::sig("def KivBinImageToContourArray(image: numpy.typing.NDArray[typing.Any]) -> "
                       "list[numpy.typing.NDArray[numpy.float64]]"),
               "The borders in a mask.");
    module.def("KivROIToRegion", taking_one(KivROIToRegion, "roi"), "roi"_a,
               nb::sig("def KivROIToRegion(roi: ROI) -> Region"), "The pixels of a region of interest.");
    module.def("KivRegionToROI", taking_one(KivRegionToROI, "region"), "region"_a,
               nb::sig("def KivRegionToROI(region: Region) -> ROI"), "A region of interest that is a region's mask.");
    module.def("KivROIToBinImage", taking_one(KivROIToBinImage, "roi"), "roi"_a,
               nb::sig("def KivROIToBinImage(roi: ROI) -> numpy.typing.NDArray[typing.Any]"),
               "A mask of a region of interest, of 0 and 255.");
    module.def("KivBinImageToROI", taking_one(KivBinImageToROI, "image"), "image"_a,
               nb::sig("def KivBinImageToROI(image: numpy.typing.NDArray[typing.Any]) -> ROI"),
               "A region of interest that is a mask's.");
    module.def("KivROIToContourArray", taking_one(KivROIToContourArray, "roi"), "roi"_a,
               nb::sig("def KivROIToContourArray(roi: ROI) -> list[numpy.typing.NDArray[numpy.float64]]"),
               "The borders of a region of interest.");
    module.def("KivRegionAdd", taking_two(KivRegionAdd, "a", "b"), "a"_a, "b"_a,
               nb::sig("def KivRegionAdd(a: Region, b: Region) -> Region"),
               "Union, by the family's rules at the ends of lists.");
    module.def("KivRegionAnd", taking_two(KivRegionAnd, "a", "b"), "a"_a, "b"_a,
               nb::sig("def KivRegionAnd(a: Region, b: Region) -> Region"), "Intersection, by the family's rules.");
    module.def("KivRegionSub", taking_two(KivRegionSub, "a", "b"), "a"_a, "b"_a,
               nb::sig("def KivRegionSub(a: Region, b: Region) -> Region"), "Difference, by the family's rules.");
    module.def("KivRegionNot", taking_one(KivRegionNot, "a"), "a"_a, nb::sig("def KivRegionNot(a: Region) -> Region"),
               "Complement, by the family's rules.");
    module.def("KivROIAdd", taking_two(KivROIAdd, "a", "b"), "a"_a, "b"_a,
               nb::sig("def KivROIAdd(a: ROI, b: ROI) -> ROI"), "Union, by the family's rules at the ends of lists.");
    module.def("KivROIAnd", taking_two(KivROIAnd, "a", "b"), "a"_a, "b"_a,
               nb::sig("def KivROIAnd(a: ROI, b: ROI) -> ROI"), "Intersection, by the family's rules.");
    module.def("KivROISub", taking_two(KivROISub, "a", "b"), "a"_a, "b"_a,
               nb::sig("def KivROISub(a: ROI, b: ROI) -> ROI"), "Difference, by the family's rules.");
    module.def("KivROINot", taking_one(KivROINot, "a"), "a"_a, nb::sig("def KivROINot(a: ROI) -> ROI"),
               "Complement, by the family's rules.");
    module.def(
        "KivRegionToImage",
        [](nb::handle region, int foreground, int background, int width, int height) {
            Taken<KivRegion> taken(region, "region");
            return result_of<KivImage>([&](KivImage* out) {
                return KivRegionToImage(out, taken.Value(), foreground, background, width, height);
            });
        },
        "region"_a, "foreground"_a, "background"_a, "width"_a, "height"_a,
        nb::sig("def KivRegionToImage(region: Region, foreground: int, background: int, width: int, height: int) -> "
                "numpy.typing.NDArray[typing.Any]"),
        "An image of a region, in two grey values of 0 to 255.");
    module.def(
        "KivContourArrayToRegion",
        [](nb::handle contours, int width, int height) {
            Taken<KivContourArray> taken(contours, "contours");
            return result_of<KivRegion>(
                [&](KivRegion* out) { return KivContourArrayToRegion(taken.Value(), width, height, out); });
        },
        "contours"_a, "width"_a, "height"_a,
        nb::sig("def KivContourArrayToRegion(contours: collections.abc.Iterable[numpy.typing.ArrayLike], width: int, "
                "height: int) -> Region"),
        "The region that contours enclose together.");
    module.def(
        "KivContourArrayToBinImage",
        [](nb::handle contours, int width, int height) {
            Taken<KivContourArray> taken(contours, "contours");
            return result_of<KivImage>(
                [&](KivImage* out) { return KivContourArrayToBinImage(out, taken.Value(), width, height); });
        },
        "contours"_a, "width"_a, "height"_a,
        nb::sig("def KivContourArrayToBinImage(contours: collections.abc.Iterable[numpy.typing.ArrayLike], width: int, "
                "height: int) -> numpy.typing.NDArray[typing.Any]"),
        "A mask of what contours enclose together, of 0 and 255.");
    module.def(
        "KivMergContour",
        [](nb::handle image, nb::handle contour, bool add) {
            Taken<KivImage> mask(image, "image");
            Taken<KivContour> taken(contour, "contour");
            return result_of<KivContourArray>(
                [&](KivContourArray* out) { return KivMergContour(mask.Value(), taken.Value(), add, out); });
        },
        "image"_a, "contour"_a, "add"_a,
        nb::sig("def KivMergContour(image: numpy.typing.NDArray[typing.Any], contour: numpy.typing.ArrayLike, add: "
                "bool) -> list[numpy.typing.NDArray[numpy.float64]]"),
        "The borders of a mask to which a contour's inside is added, or from which it is cut.");
    module.def(
        "maxbit", [](nb::handle values) { return maxbit(Taken<KivVarArray>(values, "values").Value()); }, "values"_a,
        nb::sig("def maxbit(values: Values) -> int"), "The number of decimal digits of the largest value, at least 1.");
    module.def("radixsort", sorted_runs, "rows"_a, "col_begins"_a, "col_ends"_a,
               nb::sig("def radixsort(rows: Values, col_begins: Values, col_ends: Values) -> tuple[GivenValues, "
                       "GivenValues, GivenValues]"),
               "Runs sorted by row, stably: the three arrays anew.");
}

KivRunSet set_of_polygons(nb::handle rings, nb::handle shape, const std::string& rule, double pixel_center)
{
    if (rule != "even-odd" && rule != "non-zero") {
        throw nb::value_error(("rule must be 'even-odd' or 'non-zero', not '" + rule + "'").c_str());
    }
    std::vector<std::vector<cv::Point_<double>>> list;
    for (const nb::handle ring : nb::iter(rings)) {
        list.push_back(points_of(ring, "rings"));
        for (cv::Point_<double>& point : list.back()) {
            point.x -= pixel_center;
            point.y -= pixel_center;
        }
    }
    const Frame frame = frame_of(shape);
    const nb::gil_scoped_release release;
    return KivRuns::FromPolygons(list, frame.width, frame.height,
                                 rule == "even-odd" ? KivRuns::FillRule::EvenOdd : KivRuns::FillRule::NonZero);
}

nb::object level_contours(nb::handle image, double level)
{
    Taken<KivImage> taken(image, "image");
    KivContourArray contours;
    {
        const nb::gil_scoped_release release;
        contours = KivContours::AtLevel(taken.Value().Mat(), level);
    }
    return given(std::move(contours));
}

} // namespace

NB_MODULE(_family, module)
{
    module.doc() = "The functions on the data types; kivdataconvert.family has their names.";
    nb::module_::import_("kivdataconvert._core"); // has RunSet
    bind_regions(module);
    bind_rois(module);
    bind_functions(module);
    module.def("level_contours", level_contours, "image"_a, "level"_a,
               nb::sig("def level_contours(image: numpy.typing.NDArray[typing.Any], level: float) -> "
                       "list[numpy.typing.NDArray[numpy.float64]]"),
               "The closed contours of a grey image at a level, to fractions of a pixel.");
    module.def("_set_of_polygons", set_of_polygons, "rings"_a, "shape"_a, "rule"_a, "pixel_center"_a,
               nb::sig("def _set_of_polygons(rings: typing.Any, shape: tuple[int, int], rule: str, pixel_center: "
                       "float) -> RunSet"));
}
