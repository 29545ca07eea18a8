// SPDX-License-Identifier: MIT
/// @file
/// KivMatrix: a general matrix.
#pragma once

#include <KivData/KivMatHolder.h>

/// A matrix of any element type that OpenCV knows.
class KIVDATA_API KivMatrix : public KivMatHolder
{
public:
    using KivMatHolder::KivMatHolder;
};
