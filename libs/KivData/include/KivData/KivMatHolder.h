// SPDX-License-Identifier: MIT
/// @file
/// What images and matrices have in common: they hold a cv::Mat that others may reach through the first member.
#pragma once

#include <KivData/KivDataExport.h>

#include <opencv2/core.hpp>

#include <utility>

/// Holds one cv::Mat by value. The first member points to it, always, also when the object is empty or moved from.
///
/// Made from a cv::Mat it shares that matrix's pixels, as cv::Mat itself does; a copy of a holder has pixels of its
/// own. Assignment either succeeds or, on an exception of the pixel copy, leaves the object as it was.
class KIVDATA_API KivMatHolder
{
public:
    KivMatHolder() = default;                                                    ///< Holds an empty matrix.
    explicit KivMatHolder(cv::Mat matrix) : matrix_(std::move(matrix)) {}        ///< Shares the pixels of `matrix`.
    KivMatHolder(const KivMatHolder& other) : matrix_(copy_of(other.matrix_)) {} ///< Copies the pixels.
    KivMatHolder(KivMatHolder&& other) noexcept : matrix_(std::move(other.matrix_)) {} ///< Leaves `other` empty.
    ~KivMatHolder() = default;

    /// Copies the pixels.
    KivMatHolder& operator=(const KivMatHolder& other)
    {
        matrix_ = copy_of(other.matrix_);
        return *this;
    }

    /// Takes the pixels over and leaves `other` empty.
    KivMatHolder& operator=(KivMatHolder&& other) noexcept
    {
        matrix_ = std::exchange(other.matrix_, cv::Mat());
        return *this;
    }

    cv::Mat& Mat() noexcept { return matrix_; }             ///< The matrix itself, not a copy.
    const cv::Mat& Mat() const noexcept { return matrix_; } ///< The matrix itself, not a copy.

    /// Equal when of one size and element type and of the same bytes.
    friend bool operator==(const KivMatHolder& a, const KivMatHolder& b) { return a.equals(b); }
    friend bool operator!=(const KivMatHolder& a, const KivMatHolder& b) { return !a.equals(b); }

private:
    /// cv::Mat::clone() forgets the size and the type of a matrix without elements.
    static cv::Mat copy_of(const cv::Mat& matrix) { return matrix.empty() ? matrix : matrix.clone(); }
    bool equals(const KivMatHolder& other) const;

    [[maybe_unused]] cv::Mat* first_member_ = &matrix_;
    cv::Mat matrix_;
};
