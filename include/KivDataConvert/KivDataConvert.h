// SPDX-License-Identifier: MIT
/// @file
/// Conversions between the machine-vision data types, and set algebra on regions and regions of interest.
///
/// These conventions hold for every function unless it says otherwise:
/// - Coordinates are 0-based pixels, x is the column and y the row; (x, y) in whole numbers is the centre of a pixel.
/// - Run ends are inclusive. A frame is a width and a height in pixels.
/// - A mask is an 8-bit single-channel image; every non-zero byte is foreground.
/// - A region is empty when its width is below 1; its height and its runs do not matter.
/// - Every function returns a result code, 0 (KIVMV_OK) on success. Conditions are listed in the order in which they
///   are checked; the first that holds decides. On a failure the output is as it was, unless the function says that it
///   is cleared first.
/// - Pointers must not be null. Inputs are passed by reference and are never modified.
/// - The library throws no exceptions itself. Those of the data types and of OpenCV (std::bad_alloc, cv::Exception)
///   pass to the caller unless a function says otherwise. Nothing leaks, and the output is as it was, unless writing it
///   had begun. A frame too large to hold raises cv::Exception or std::bad_alloc in every
///   function that makes a mask of it.
/// - No state is kept between calls. Calls on distinct objects may run at the same time; two calls that share an
///   object which one of them writes must not.
/// - Costs are stated in runs, pixels or points; "linear" means proportional to what is read plus what is written.
#pragma once

#include <KivData/KivData.h>
#include <KivDataConvert/KivResult.h>

// A static library, and a program that is linked with it, is compiled with KIV_STATIC; CMake's targets say so.
#if defined(_WIN32) && defined(KIV_STATIC)
#define KIVMV_API
#elif defined(_WIN32) && defined(KivDataConvert_EXPORTS)
#define KIVMV_API __declspec(dllexport)
#elif defined(_WIN32)
#define KIVMV_API __declspec(dllimport)
#elif defined(__GNUC__)
#define KIVMV_API __attribute__((visibility("default")))
#else
#define KIVMV_API
#endif

/// All functions of the library, their result codes, and three data words. KivDataConvert.h has the conventions that
/// hold for all of them.
namespace KIVMV
{

/// @name Data words
/// Four bytes each: a character code, then zeros. The library does not read them.
/// @{
KIVMV_API extern const int str1; ///< 'o'
KIVMV_API extern const int str2; ///< 'p'
KIVMV_API extern const int str3; ///< 't'
/// @}

/// @name Run sorting
/// @{

/// The number of decimal digits of the largest value, at least 1; a negative value counts as one digit.
///
/// @param values ints (doubles and texts are converted as KivVar::I() does); an empty array gives 1
/// @return 1 to 10
///
/// Cost: linear in the values, plus the copy of the array.
KIVMV_API int maxbit(KivVarArray values);

/// Sorts runs by row, in place and stably: runs of one row keep their order. Columns only travel with their row.
///
/// Negative rows sort before row 0. The elements that are sorted are ints afterwards (doubles and texts are converted
/// as KivVar::I() does).
/// @param rows the keys; any ints
/// @param colBegins at least as many elements as `rows`; elements past that stay where they are
/// @param colEnds the same; may be the same object as `colBegins`
///
/// Raises std::out_of_range when there are fewer columns than rows; the arrays are as they were then.
/// Cost: linear on the bundled data types; n log n in the runs on others.
KIVMV_API void radixsort(KivVarArray& rows, KivVarArray& colBegins, KivVarArray& colEnds);
/// @}

/// @name Regions and pixel lists
/// @{

/// Lists the pixels of a region, one entry per pixel: ordered by row, then by column, each pixel once.
///
/// Runs are clipped to the region's frame. Both arrays are cleared before anything else.
/// @param region the region
/// @param[out] xs columns of the pixels
/// @param[out] ys rows of the pixels, parallel to `xs`; another object than `xs`
/// @retval KIVMV_ERR_PARAM_1 the region is empty; both arrays are empty then
///
/// Raises cv::Exception for a frame of negative height. Cost: linear in the frame's pixels, the entries, and the runs;
/// where runs overlap, also in the pixels that each covers in the frame.
KIVMV_API int KivRegionToVarArray(KivRegion& region, KivVarArray* xs, KivVarArray* ys);

/// Makes the region of the listed pixels; order and repetitions do not matter.
///
/// The region's frame reaches from (0, 0) to just past the largest column and the largest row. Pixels with a negative
/// coordinate are left out. Runs are maximal, ordered by row, then by column.
/// @param xs columns, ints (doubles are converted as KivVar::I() does)
/// @param ys rows, parallel to `xs`; may be the same object
/// @param[out] region the region
/// @retval KIVMV_ERR_LENGTH `xs` is empty, or the arrays differ in length
/// @retval KIVMV_ERR_PARAM_1 an element of `xs` is not a number; or, when all elements are numbers, the largest row or
///         the largest column is below 1: lists that lie wholly in row 0 or in column 0 are rejected
/// @retval KIVMV_ERR_PARAM_2 an element of `ys` is not a number; the first element that is not decides, x before y
///
/// Cost: linear in the list and in the frame's pixels.
KIVMV_API int KivVarArrayToRegion(KivVarArray& xs, KivVarArray& ys, KivRegion* region);

/// Makes the region of the pixels that the points fall on; order and repetitions do not matter.
///
/// Coordinates are truncated toward zero: (3.9, 2.99) is pixel (3, 2) and (-0.5, 4) is pixel (0, 4). The frame reaches
/// from (0, 0) to just past the largest column and row. Points whose truncated coordinates are negative are left out.
/// Coordinates outside the range of int saturate, and NaN counts as 0.
/// @param points the points
/// @param[out] region the region
/// @retval KIVMV_ERR_PARAM_1 there are no points, or the largest truncated row or column is below 1: points that lie
///         wholly in row 0 or in column 0 are rejected
///
/// Cost: linear in the points and in the frame's pixels. Raises cv::Exception or std::bad_alloc when the frame is too
/// large to hold.
KIVMV_API int KivPointArrayToRegion(KivPointArray& points, KivRegion* region);

/// Lists the pixels of a region as points, run by run in the order in which the region delivers its runs.
///
/// Nothing is clipped: runs outside the frame are listed as they are, and pixels that several runs cover are listed
/// several times. A run whose end lies before its begin gives no points. The array is cleared before anything else.
/// @param region the region
/// @param[out] points column and row of each pixel
/// @retval KIVMV_ERR_PARAM_1 the region is empty; the array is empty then
///
/// Raises cv::Exception for a frame of negative height. Cost: linear in the points.
KIVMV_API int KivRegionToPointArray(KivRegion& region, KivPointArray* points);
/// @}

/// @name Images, regions and matrices
/// @{

/// Makes the region of an image's non-zero pixels. The image's size becomes the region's frame.
///
/// If the image has several channels, the first Width() bytes of each row are read.
/// @param image an 8-bit image of any channel count except 3
/// @param[out] region runs are maximal, ordered by row, then by column; replaced also when there are none
/// @retval KIVMV_ERR_CHANNELS the image has exactly 3 channels
/// @retval KIVMV_ERR_NO_IMAGE the image holds no pixels (ImageData() is null)
/// @retval KIVMV_ERR_BIT_DEPTH the image is not 8-bit
///
/// Cost: linear in the pixels; a copy of the image where the extractor may write to what it reads (the bundled one
/// does not).
KIVMV_API int KivImageToRegion(KivImage& image, KivRegion* region);

/// Makes the region of a binary image's non-zero pixels. The image's size becomes the region's frame.
///
/// @param image an 8-bit image of one channel
/// @param[out] region runs are maximal, ordered by row, then by column; replaced also when there are none
/// @retval KIVMV_ERR_NO_IMAGE the image's height is below 1
/// @retval KIVMV_ERR_CHANNELS the channel count is not 1
/// @retval KIVMV_ERR_BIT_DEPTH the image is not 8-bit
///
/// Cost: linear in the pixels; a copy of the image where the extractor may write to what it reads (the bundled one
/// does not).
KIVMV_API int KivBinImageToRegion(KivImage& image, KivRegion* region);

/// Paints a region into a new image of the given size and grey values.
///
/// The frame of the region does not matter: runs are clipped to the new image. All other pixels are background.
/// @param[out] image becomes an 8-bit image of one channel with pixels of its own
/// @param region the region
/// @param foreground grey value of the region's pixels, 0 to 255 inclusive
/// @param background grey value of all other pixels, 0 to 255 inclusive
/// @param width columns of the image, at least 1
/// @param height rows of the image, at least 1
/// @retval KIVMV_ERR_PARAM_2 `foreground` is below 0 or above 255
/// @retval KIVMV_ERR_PARAM_3 `background` is below 0 or above 255
/// @retval KIVMV_ERR_PARAM_4 `width` is below 1
/// @retval KIVMV_ERR_PARAM_5 `height` is below 1
/// @retval KIVMV_ERR_PARAM_1 the region is empty
/// @retval KIVMV_ERR_EXCEPTION the new image could not be made, for lack of memory for instance
///
/// Cost: linear in the image's pixels and the runs, however far runs reach outside the image; where runs overlap, also
/// in the pixels that each covers in the image.
KIVMV_API int KivRegionToImage(KivImage* image, KivRegion& region, int foreground, int background, int width,
                               int height);

/// Paints a region into a new binary image of the region's frame: 255 where the region is, 0 elsewhere.
///
/// @param[out] image becomes an 8-bit image of one channel with pixels of its own
/// @param region runs are clipped to the frame
/// @retval KIVMV_ERR_PARAM_1 the region is empty
///
/// Raises cv::Exception for a frame of negative height. Cost: as KivRegionToImage().
KIVMV_API int KivRegionToBinImage(KivImage* image, KivRegion& region);

/// Makes a matrix share the pixels of an image: nothing is copied or converted, and writing through one is seen through
/// the other. From then on the two must be treated as one object by threads.
///
/// @param image an image of one channel, of any depth
/// @param[out] matrix its former pixels are released
/// @retval KIVMV_ERR_NO_IMAGE the image's height is below 1
/// @retval KIVMV_ERR_CHANNELS the image has more than one channel
///
/// Cost: constant.
KIVMV_API int KivImageToMatrix(KivImage& image, KivMatrix* matrix);

/// Makes an image an 8-bit copy of a matrix, which shares nothing with it.
///
/// Values are rounded to the nearest, ties to even, and clamped to 0 to 255, not rescaled. NaN gives 0, and so does a
/// real too large for an int, infinity included. The channel count is kept.
/// @param[out] image its former pixels are released
/// @param matrix any element type that OpenCV converts to 8 bits
/// @retval KIVMV_ERR_PARAM_1 the matrix has no rows, or more than two dimensions
///
/// Cost: linear in the elements.
KIVMV_API int KivMatrixToImage(KivImage* image, KivMatrix& matrix);
/// @}

/// @name Contours and coordinate arrays
/// @{

/// Lists the points of a contour as ints, rounded to the nearest, ties to even: 2.5 gives 2, 3.5 gives 4.
///
/// Both arrays are cleared before anything else. Coordinates that no int can hold are saturated to int, and NaN gives
/// 0.
/// @param contour the contour
/// @param[out] xs columns
/// @param[out] ys rows, parallel to `xs`; another object than `xs`
/// @retval KIVMV_ERR_PARAM_1 the contour has no points; both arrays are empty then
///
/// Cost: linear in the points.
KIVMV_API int KivContourToVarArray(KivContour& contour, KivVarArray* xs, KivVarArray* ys);

/// Makes a contour of points with int coordinates.
///
/// The contour is reset before anything else, and is not rolled back: when an element is not a number, the points
/// before it stay in the contour; when the lengths are rejected, it has no points.
/// @param xs columns, ints (doubles are converted as KivVar::I() does)
/// @param ys rows, parallel to `xs`; may be the same object
/// @param[out] contour the points, in order
/// @retval KIVMV_ERR_LENGTH the arrays differ in length
/// @retval KIVMV_ERR_PARAM_1 the arrays are empty, or an element of `xs` is not a number
/// @retval KIVMV_ERR_PARAM_2 an element of `ys` is not a number; the first element that is not decides, x before y
///
/// Cost: linear in the points.
KIVMV_API int KivVarArrayToContour(KivVarArray& xs, KivVarArray& ys, KivContour* contour);

/// Lists the points of a contour, exactly as they are. The array is cleared before anything else.
///
/// @param contour the contour
/// @param[out] points the points, in order
/// @retval KIVMV_ERR_PARAM_1 the contour has no points; the array is empty then
///
/// Cost: linear in the points.
KIVMV_API int KivContourToPointArray(KivContour& contour, KivPointArray* points);

/// Makes a contour of points, exactly as they are. The contour's points are removed before anything else; whatever
/// else the contour holds stays.
///
/// @param points the points
/// @param[out] contour the points, in order
/// @retval KIVMV_ERR_PARAM_1 there are no points; the contour is empty then
///
/// Cost: linear in the points.
KIVMV_API int KivPointArrayToContour(KivPointArray& points, KivContour* contour);
/// @}

/// @name Contours, regions and binary images
/// @{

/// Traces a region into contours. Runs are clipped to the region's frame.
///
/// @param region the region
/// @param[out] contours replaced by what IKivROIPara::MatToMask() traces
/// @retval KIVMV_ERR_PARAM_1 the region is empty
///
/// Raises cv::Exception for a frame of negative height. Cost: linear in the runs and the points if the runs are maximal
/// and ordered, which they are made first otherwise; with other data types than the bundled ones as KivRegionToImage()
/// instead, and linear in the points.
KIVMV_API int KivRegionToContourArray(KivRegion& region, KivContourArray* contours);

/// Fills contours into a region of the given frame, as IKivROIPara::ToMAT() fills them.
///
/// @param contours the contours
/// @param width columns of the frame, at least 2
/// @param height rows of the frame, at least 2
/// @param[out] region runs are maximal, ordered by row, then by column
/// @retval KIVMV_ERR_PARAM_1 there are no contours
/// @retval KIVMV_ERR_PARAM_2 `width` is below 2
/// @retval KIVMV_ERR_PARAM_3 `height` is below 2
/// @retval KIVMV_ERR_EXCEPTION filling raised an exception
///
/// Cost: that of KivPolygonFill, whatever the frame; with other data types than the bundled ones that of their
/// IKivROIPara::ToMAT(), and linear in the frame's pixels.
KIVMV_API int KivContourArrayToRegion(KivContourArray& contours, int width, int height, KivRegion* region);

/// Fills one contour, its border included, into a region. What it encloses twice is not filled (even-odd rule).
///
/// Coordinates are truncated toward zero. The frame reaches from (0, 0) to just past the largest column and row;
/// parts at negative coordinates are cut off, those more than 2^20 rows above the frame before drawing. An edge that
/// begins n rows above the frame may be drawn up to n / 65536 pixels off. Coordinates outside the range of int
/// saturate, and NaN counts as 0. A largest column or row of -1 gives a frame of 0 columns or rows.
/// @param contour the contour
/// @param[out] region runs are maximal, ordered by row, then by column
/// @retval KIVMV_ERR_PARAM_1 the contour has no points
///
/// Raises cv::Exception when the largest truncated column or row is below -1 or the frame is too large to hold.
/// Cost: linear in the pixels of a mask, the points, and the rows that the edges pass. The mask is that of the frame,
/// but with the bundled data types only that of the contour's bounding box if no column or row is negative and no
/// column is 2^15 or more.
KIVMV_API int KivContourToRegion(KivContour& contour, KivRegion* region);

/// Fills contours into a new binary image of the given size, as IKivROIPara::ToMAT() fills them.
///
/// @param[out] image becomes an 8-bit image of one channel
/// @param contours the contours
/// @param width columns of the image, at least 2
/// @param height rows of the image, at least 2
/// @retval KIVMV_ERR_PARAM_1 there are no contours
/// @retval KIVMV_ERR_PARAM_2 `width` is below 2
/// @retval KIVMV_ERR_PARAM_3 `height` is below 2
/// @retval KIVMV_ERR_EXCEPTION filling raised an exception
///
/// Cost: that of IKivROIPara::ToMAT(), for the bundled data types as KivContourArrayToRegion() and linear in the
/// pixels.
KIVMV_API int KivContourArrayToBinImage(KivImage* image, KivContourArray& contours, int width, int height);

/// Traces a binary image into contours. The image must not be written by another thread meanwhile.
///
/// @param image an 8-bit image of at most one channel
/// @param[out] contours replaced by what IKivROIPara::MatToMask() traces
/// @retval KIVMV_ERR_NO_IMAGE the image's height is below 1
/// @retval KIVMV_ERR_CHANNELS the image has more than one channel
/// @retval KIVMV_ERR_BIT_DEPTH the image is not 8-bit
///
/// Cost: linear in the pixels and the points.
KIVMV_API int KivBinImageToContourArray(KivImage& image, KivContourArray* contours);

/// Draws a filled contour, its border included, into a copy of a binary image and traces the copy into contours. The
/// image itself is not changed. What the contour encloses twice is not drawn (even-odd rule).
///
/// Coordinates are rounded to the nearest pixel, ties to even: (2.5, 3.5) is drawn at (2, 4). Coordinates outside the
/// range of int saturate, and NaN counts as 0. What lies outside the image is cut off, parts more than 2^20
/// rows above it before drawing. An edge that begins n rows above the image may be drawn up to n / 65536 pixels off.
/// @param image an image of one channel, 8-bit as a rule; the depth and the height are not checked
/// @param contour the contour
/// @param add true: the contour becomes foreground (255); false: it is cut out (0)
/// @param[out] contours replaced by what IKivROIPara::MatToMask() traces
/// @retval KIVMV_ERR_CHANNELS the channel count is not 1
/// @retval KIVMV_ERR_NO_IMAGE the image's width is below 1
/// @retval KIVMV_ERR_PARAM_1 the contour has no points
///
/// Cost: linear in the pixels, the points, and the rows that the contour's edges pass; one copy of the image, made
/// before the checks.
KIVMV_API int KivMergContour(KivImage& image, KivContour& contour, bool add, KivContourArray* contours);
/// @}

/// @name Regions of interest
/// ROIs of type 3 (empty) and 10 (open curve) have no pixels.
/// @{

/// Makes the region of an ROI's pixels: exactly the runs that the ROI's mask has, in that order.
///
/// @param roi the ROI
/// @param[out] out the region, in the frame of the ROI's mask
/// @retval KIVMV_ERR_PARAM_1 the ROI is of type 10 or 3, or its mask has no columns
///
/// Cost: linear in the runs; with other data types than the bundled ones also in the mask's pixels and, where runs
/// overlap, in the pixels that each covers.
KIVMV_API int KivROIToRegion(KivROI& roi, KivRegion* out);

/// Makes an ROI a mask of a region's runs, in the region's frame.
///
/// @param region the region
/// @param[out] out the ROI, of any type before the call
/// @retval KIVMV_ERR_PARAM_1 the region is empty
///
/// Cost: linear in the runs.
KIVMV_API int KivRegionToROI(KivRegion& region, KivROI* out);

/// Paints an ROI's mask into an image of the mask's frame: 255 where the ROI is, 0 elsewhere. A frame without columns
/// or without rows gives an empty image.
///
/// @param[out] image becomes an 8-bit image of one channel
/// @param roi the ROI
/// @retval KIVMV_ERR_PARAM_1 the ROI is of type 3 or 10
///
/// Cost: as KivROIToRegion().
KIVMV_API int KivROIToBinImage(KivImage* image, KivROI& roi);

/// Makes an ROI a mask of a binary image's non-zero pixels, in the image's frame.
///
/// @param image an 8-bit image of at most one channel
/// @param[out] out the ROI, of any type before the call
/// @retval KIVMV_ERR_NO_IMAGE the image's height is below 1
/// @retval KIVMV_ERR_CHANNELS the image has more than one channel
/// @retval KIVMV_ERR_BIT_DEPTH the image is not 8-bit
///
/// Cost: linear in the pixels.
KIVMV_API int KivBinImageToROI(KivImage& image, KivROI* out);

/// Traces an ROI's mask into contours.
///
/// @param roi the ROI
/// @param[out] out replaced by what IKivROIPara::GetMask() traces
/// @retval KIVMV_ERR_PARAM_1 the ROI is of type 3 or 10
///
/// Cost: as KivROIToRegion(), and linear in the points.
KIVMV_API int KivROIToContourArray(KivROI& roi, KivContourArray* out);
/// @}

/// @name Set algebra of regions
/// The operands' runs are combined row by row. Results are neither joined nor sorted by column. Rows at the ends of the
/// operands' lists follow special rules, which docs/set-algebra.md describes; KivRunSet has none. `out` may be an
/// operand, and the operands may be one object.
/// @{

/// Union: the pixels of `a` or `b`. The frame is as wide as the wider and as high as the higher operand.
///
/// On a row that both have, each run of `a` is united with each run of `b`: p and q runs give p q to 2 p q runs. When
/// `a` is a single run it is kept as it is, and the runs of `b` on its row are lost.
/// @param a first operand
/// @param b second operand
/// @param[out] out rows of `a` ascending, then the rows that only `b` has
/// @retval KIVMV_ERR_PARAM_1 both operands are empty; `out` becomes an empty region
///
/// When one operand alone is empty, `out` becomes a copy of the other.
/// Cost: sorting both run lists by row if they do not ascend; otherwise linear in the runs read and emitted.
KIVMV_API int KivRegionAdd(KivRegion& a, KivRegion& b, KivRegion* out);

/// Intersection: the pixels of both `a` and `b`, in the frame of `a`.
///
/// When `a` is a single run the result has no runs, and the last row of `b` contributes only in a special case.
/// @param a first operand
/// @param b second operand
/// @param[out] out rows of `a` ascending
/// @retval KIVMV_ERR_PARAM_1 both operands are empty; `out` becomes an empty region
///
/// When one operand alone is empty, `out` becomes a copy of the other, not an empty region.
/// Cost: as KivRegionAdd(). On a row where the first or the last columns of the runs of `b` do not ascend, up to the
/// product of both numbers of runs.
KIVMV_API int KivRegionAnd(KivRegion& a, KivRegion& b, KivRegion* out);

/// Difference: the pixels of `a` that are not in `b`, in the frame of `a`.
///
/// When `a` is a single run it stays as it is.
/// @param a what is cut
/// @param b what is cut out
/// @param[out] out rows of `a` ascending
/// @retval KIVMV_ERR_PARAM_1 both operands are empty; `out` becomes an empty region
///
/// When `a` alone is empty, `out` becomes a copy of `b`; when `b` alone is empty, a copy of `a`.
/// Cost: as KivRegionAdd(), and ordering the runs of `b` by column where a row has them in another order. On a row
/// where runs of one operand overlap, up to the product of both numbers of runs.
KIVMV_API int KivRegionSub(KivRegion& a, KivRegion& b, KivRegion* out);

/// Complement: the pixels of the region's frame that are not in it.
///
/// The last row that has runs contributes nothing. A gap between two runs of a row is given as the run from the last
/// pixel of the left one to one pixel past the first pixel of the right one; where runs of a row overlap, as in a
/// union, such gaps cover pixels of the region. Rows without runs become full rows, also those between runs that lie
/// outside of the frame.
/// @param a the region
/// @param[out] out in the frame of `a`
/// @retval KIVMV_ERR_PARAM_1 the region is empty; `out` is as it was
///
/// Cost: linear in the runs read and emitted, of which there is one for each row without runs; and sorting where rows
/// or the columns within a row do not ascend.
KIVMV_API int KivRegionNot(KivRegion& a, KivRegion* out);
/// @}

/// @name Set algebra of regions of interest
/// The same on the ROIs' masks, with other rules at the ends of the run lists, which docs/set-algebra.md describes; the
/// result is a mask. Operands are judged by their types first, then by whether their masks have runs, not by a
/// width. `out` may be an operand, and the operands may be one object.
/// @{

/// Union: the pixels of `a` or `b`. The mask is as wide as the wider and as high as the higher operand's.
///
/// When all runs of `a` lie on one row they are lost, and so is the last row of `a` when it has several runs, in both
/// cases with the runs of `b` on that row.
/// @param a first operand
/// @param b second operand
/// @param[out] out rows of `a` ascending, then the rows that only `b` has
/// @retval KIVMV_ERR_PARAM_1 `a` is of type 10, or both are of type 3; `out` is as it was
/// @retval KIVMV_ERR_PARAM_2 `b` is of type 10; `out` is as it was
///
/// When one operand is of type 3, `out` becomes a copy of the other; otherwise, when the mask of `a` has no runs, a
/// copy of `b`; otherwise, when that of `b` has none, a copy of `a`. Cost: as KivRegionAdd().
KIVMV_API int KivROIAdd(KivROI& a, KivROI& b, KivROI* out);

/// Intersection: the pixels of both `a` and `b`, in the frame of `a`'s mask.
///
/// When `a` is a single run the result has no runs. When the last row of `b` has several runs it contributes nothing,
/// or, where it is the only row of `b`, its first run alone.
/// @param a first operand
/// @param b second operand
/// @param[out] out rows of `a` ascending
/// @retval KIVMV_ERR_PARAM_1 `a` is of type 10, or both are of type 3; `out` is as it was
/// @retval KIVMV_ERR_PARAM_2 `b` is of type 10, and `out` is as it was; or exactly one operand is of type 3, and `out`
///         becomes a default-constructed ROI
///
/// When neither is of type 3 and the mask of one has no runs, `out` becomes a default-constructed ROI and the result is
/// 0. Cost: as KivRegionAnd().
KIVMV_API int KivROIAnd(KivROI& a, KivROI& b, KivROI* out);

/// Difference: the pixels of `a` that are not in `b`, in the frame of `a`'s mask.
///
/// When `a` is a single run it stays as it is.
/// @param a what is cut
/// @param b what is cut out
/// @param[out] out rows of `a` ascending
/// @retval KIVMV_ERR_PARAM_1 `a` is of type 10, or both are of type 3; `out` is as it was
/// @retval KIVMV_ERR_PARAM_2 `b` is of type 10; `out` is as it was
///
/// When `a` is of type 3, `out` becomes a default-constructed ROI; otherwise, when `b` is, a copy of `a`; otherwise,
/// when the mask of `a` has no runs, a default-constructed ROI; otherwise, when that of `b` has none, a copy of `a`.
/// The result is 0 in all these cases. Cost: as KivRegionSub().
KIVMV_API int KivROISub(KivROI& a, KivROI& b, KivROI* out);

/// Complement: the pixels of the frame of the ROI's mask that are not in it.
///
/// A gap between two runs of a row is given as KivRegionNot() gives it; unlike there, the last row that has runs is
/// complemented like any other.
/// @param a the ROI
/// @param[out] out in the frame of `a`'s mask
/// @retval KIVMV_ERR_PARAM_1 the ROI is of type 3 or 10; `out` is as it was
///
/// Cost: as KivRegionNot().
KIVMV_API int KivROINot(KivROI& a, KivROI* out);
/// @}

} // namespace KIVMV
