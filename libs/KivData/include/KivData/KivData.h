// SPDX-License-Identifier: MIT
/// @file
/// All data types of libKivData: images, matrices, regions, regions of interest, contours, points and variants.
#pragma once

#include <KivData/KivContour.h>
#include <KivData/KivImage.h>
#include <KivData/KivMatrix.h>
#include <KivData/KivPoint.h>
#include <KivData/KivRegion.h>
#include <KivData/KivROI.h>
#include <KivData/KivVar.h>
#include <KivData/KivVarArray.h>
