// SPDX-License-Identifier: MIT
#include <KivData/KivRegion.h>

#include "argument_checks.h"
#include "run_arrays.h"

KivRegion::KivRegion(int width, int height, std::vector<Run> runs)
{
    CreateRegion(width, height, std::move(runs));
}

void KivRegion::GetRegionRuns(KivVarArray* rows, KivVarArray* colBegins, KivVarArray* colEnds)
{
    kivdata::runs_to_arrays(runs_, *rows, *colBegins, *colEnds);
}

void KivRegion::CreateRegion(int width, int height, KivVarArray& rows, KivVarArray& colBegins, KivVarArray& colEnds)
{
    CreateRegion(width, height, kivdata::runs_of_arrays(rows, colBegins, colEnds));
}

void KivRegion::CreateRegion(int width, int height, std::vector<Run> runs)
{
    kivdata::check_frame(width, height);
    width_ = width;
    height_ = height;
    runs_ = std::move(runs);
}

void KivRegion::swap(KivRegion& other) noexcept
{
    std::swap(width_, other.width_);
    std::swap(height_, other.height_);
    runs_.swap(other.runs_);
}
