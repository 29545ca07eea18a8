// SPDX-License-Identifier: MIT
// A second implementation of the data types that offers to the library what the contract lists and nothing else: no
// copy of a KivVar, no assignment of a KivVarArray, no default-constructed image, no const where none is promised.
// Members that start with `test_` and constructors that take a name are for the tests.
#pragma once

#include "../recording.h"

#include <KivRLC/KivRLC.h>

#include <opencv2/core.hpp>

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class KivVar : private recording::Counted
{
public:
    KivVar(int value) : test_value(value) { recording::count_call(); }
    KivVar(const KivVar&) = delete;
    ~KivVar() = default;
    KivVar& operator=(const KivVar& other);
    int I() const;
    operator int() const { return I(); }
    operator double() const { return I(); }
    int ValType() const;

    int test_value;
    int test_type = 0;
};

class KivVarArray : private recording::Counted
{
public:
    KivVarArray() { recording::count_call(); }
    KivVarArray(const KivVarArray& other);
    ~KivVarArray() = default;
    KivVarArray& operator=(const KivVarArray&) = delete;
    int Length() const;
    KivVar& operator[](int index);
    void Append(const KivVar& value);
    void Remove(int index);
    void Replace(int index, const KivVar& value);
    void Clear();

    std::string test_name; // the changes of an array that has one are listed
    std::vector<int> test_values() const;
    bool test_holds_ints_only() const;
    void test_append(int value, int type = 0);

private:
    void note(const std::string& change) const;

    std::vector<std::unique_ptr<KivVar>> values_;
};

class KivImage : private recording::Counted
{
    cv::Mat* first_member_ = &test_matrix;

public:
    explicit KivImage(std::string name) : test_name(std::move(name)) {}
    KivImage(const KivImage&) = delete;
    KivImage& operator=(const KivImage&) = delete;
    int Width() const;
    int Height() const;
    int BitDepth() const;
    int Channels() const;
    void* ImageData();

    std::string test_name;
    int test_width = 0;
    int test_height = 0;
    int test_bit_depth = 0;
    int test_channels = 1;
    cv::Mat test_matrix;

    void test_set(const cv::Mat& matrix); // the four numbers from a matrix
    [[maybe_unused]] cv::Mat* test_first_member() const { return first_member_; }
};

class KivMatrix : private recording::Counted
{
    cv::Mat* first_member_ = &test_matrix;

public:
    explicit KivMatrix(const cv::Mat& matrix) : test_matrix(matrix) {}
    KivMatrix(const KivMatrix&) = delete;
    KivMatrix& operator=(const KivMatrix&) = delete;

    cv::Mat test_matrix;
    [[maybe_unused]] cv::Mat* test_first_member() const { return first_member_; }
};

class KivRegion : private recording::Counted
{
public:
    KivRegion();
    KivRegion(const KivRegion&) = delete;
    ~KivRegion() = default;
    KivRegion& operator=(const KivRegion& other);
    int Width() const;
    int Height() const;
    void GetRegionRuns(KivVarArray* rows, KivVarArray* colBegins, KivVarArray* colEnds);
    void CreateRegion(int width, int height, KivVarArray& rows, KivVarArray& colBegins, KivVarArray& colEnds);

    std::string test_name = "KivRegion()";
    int test_width = 0;
    int test_height = 0;
    std::vector<Run> test_runs;
};

struct KivPoint : private recording::Counted {
    KivPoint() { recording::count_call(); }
    KivPoint(const KivPoint&) = delete;
    ~KivPoint() = default;
    KivPoint& operator=(const KivPoint& other);

    double x = 0.0;
    double y = 0.0;
};

class KivPointArray : private recording::Counted
{
public:
    explicit KivPointArray(std::string name) : test_name(std::move(name)) {}
    KivPointArray(const KivPointArray&) = delete;
    KivPointArray& operator=(const KivPointArray&) = delete;
    void Clear();
    void Append(KivPoint& point);
    KivPoint& operator[](int index);
    int Length() const;

    std::string test_name;
    void test_append(double x, double y);
    std::vector<cv::Point_<double>> test_points() const;

private:
    std::vector<std::unique_ptr<KivPoint>> points_;
};

class KivContour : private recording::Counted
{
    std::vector<cv::Point_<double>>* first_member_ = &test_points;

public:
    KivContour();
    KivContour(const KivContour&) = delete;
    ~KivContour() = default;
    KivContour& operator=(const KivContour& other);
    int Length() const;

    std::string test_name = "KivContour()";
    std::vector<cv::Point_<double>> test_points;
    [[maybe_unused]] void* test_first_member() const { return first_member_; }
};

class KivContourArray : private recording::Counted
{
public:
    explicit KivContourArray(std::string name) : test_name(std::move(name)) {}
    KivContourArray(const KivContourArray&) = delete;
    KivContourArray& operator=(const KivContourArray&) = delete;
    int Length() const;

    std::string test_name;
    int test_length = 0;
    std::string test_written_by;
};

class IKivROIPara : private recording::Counted
{
public:
    IKivROIPara();
    IKivROIPara(const IKivROIPara&) = delete;
    ~IKivROIPara() = default;
    IKivROIPara& operator=(const IKivROIPara&) = delete;

    void GetMask(KivVarArray* rows, KivVarArray* colBegins, KivVarArray* colEnds, int* width, int* height) const;
    void GetMask(KivContourArray* contours, int* width, int* height);
    void GenMask(KivVarArray& rows, KivVarArray& colBegins, KivVarArray& colEnds, int width, int height);
    cv::Mat ToMAT(KivVarArray& rows, KivVarArray& colBegins, KivVarArray& colEnds, int width, int height);
    static cv::Mat ToMAT(KivContourArray& contours, int width, int height);
    void MatToMask(cv::Mat& mask, KivVarArray* rows, KivVarArray* colBegins, KivVarArray* colEnds, int* width,
                   int* height);
    static void MatToMask(cv::Mat& mask, KivContourArray* contours, int* width, int* height);

    std::string test_name = "IKivROIPara()";
    int test_width = 0;
    int test_height = 0;
    std::vector<Run> test_runs;

private:
    friend class KivROI;
    explicit IKivROIPara(std::string name) : test_name(std::move(name)) {} // an ROI's own, whose making is not listed
};

class KivROI : private recording::Counted
{
    IKivROIPara* first_member_ = &test_parameters;

public:
    KivROI();
    KivROI(const KivROI& other);
    ~KivROI() = default;
    KivROI& operator=(const KivROI& other);
    int ROIType() const;

    std::string test_name = "KivROI()";
    int test_type = 3;
    IKivROIPara test_parameters{"KivROI()"};

    [[maybe_unused]] void* test_first_member() const { return first_member_; }
    void test_become(const std::string& name, int type, int width, int height, std::vector<Run> runs);
};
