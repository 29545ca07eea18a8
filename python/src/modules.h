// SPDX-License-Identifier: MIT
// The parts that the modules are made of.
#pragma once

#include <KivRLC/KivRunSet.h>

#include <nanobind/nanobind.h>

namespace kivpython
{

namespace nb = nanobind;
using RunSetClass = nb::class_<KivRunSet>;

void bind_algebra(RunSetClass& set);
void bind_python_protocols(nb::module_& module, RunSetClass& set);
void bind_images(nb::module_& module, RunSetClass& set);
void bind_coco(nb::module_& module, RunSetClass& set);
void bind_transforms(nb::module_& module, RunSetClass& set);
void bind_morphology(nb::module_& module, RunSetClass& set);
void bind_components(RunSetClass& set);
void bind_measures(RunSetClass& set);
void bind_outlines(RunSetClass& set);

} // namespace kivpython
