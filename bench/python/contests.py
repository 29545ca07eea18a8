# SPDX-License-Identifier: MIT
"""What is timed: works, each with those who do it."""

from __future__ import annotations

import dataclasses
from typing import Any, Callable

import cv2
import dask.array
import dask_image.ndmeasure
import numpy
import pycocotools.mask
import scipy.ndimage
import skimage.measure
import skimage.morphology
from rlemasklib import RLEMask

import kivdataconvert.dask
import masks
from kivdataconvert import Element, RunSet, coco_to_mask

OURS = "kivdataconvert"
OURS_ON_RUNS = "kivdataconvert, runs in, runs out"
EVERYWHERE = numpy.ones((3, 3), bool)

Given = Any
Normal = Callable[[Any], Any]


@dataclasses.dataclass(frozen=True)
class Work:
    """Contestants are made of a mask; ``normal`` makes of each one's result what must be the same for all."""

    name: str
    make: Callable[[Given], dict[str, Callable[[], Any]]]
    normal: Normal

    def contestants(self, mask: numpy.ndarray) -> dict[str, Callable[[], Any]]:
        return self.make(Operands(mask))

    def check(self, results: dict[str, Any]) -> None:
        expected = self.normal(results[OURS])
        for who, result in results.items():
            if not numpy.array_equal(self.normal(result), expected):
                raise AssertionError(f"{self.name}: {who} has another result")


class Operands:
    """Two masks, and the forms in which each contestant keeps them, which are made before its time is taken."""

    def __init__(self, mask: numpy.ndarray) -> None:
        self.mask, self.other = mask, masks.moved(mask)
        self.shape = mask.shape
        self.bytes = mask.view("uint8")
        self.a, self.b = map(RunSet.from_mask, (self.mask, self.other))
        self.coco, self.other_coco = (
            pycocotools.mask.encode(numpy.asfortranarray(mask.view("uint8"))) for mask in (self.mask, self.other)
        )
        self.rle, self.other_rle = (RLEMask.from_array(mask.view("uint8")) for mask in (self.mask, self.other))
        self.chunked = dask.array.from_array(mask, chunks=mask.shape[0] // 4)


def pixels(result: Any) -> numpy.ndarray:
    """The mask that a result means, whatever form it has."""
    if isinstance(result, RunSet):
        result = result.to_coco(pixels.shape)
    if isinstance(result, RLEMask):
        result = result.to_dict()
    if isinstance(result, dict):
        result = pycocotools.mask.decode(result)
    return numpy.asarray(result) != 0


def extraction(given: Operands) -> dict[str, Callable[[], Any]]:
    by_columns = numpy.asfortranarray(given.bytes)
    pixels.shape = given.shape
    return {
        OURS: lambda: RunSet.from_mask(given.mask),
        "pycocotools": lambda: pycocotools.mask.encode(numpy.asfortranarray(given.bytes)),
        "pycocotools, of a mask by columns": lambda: pycocotools.mask.encode(by_columns),
        "rlemasklib": lambda: RLEMask.from_array(given.bytes),
    }


def painting(given: Operands) -> dict[str, Callable[[], Any]]:
    return {
        OURS: lambda: given.a.to_mask(given.shape),
        "pycocotools": lambda: pycocotools.mask.decode(given.coco),
        "rlemasklib": lambda: given.rle.to_array(order="C"),
        "rlemasklib, by columns": given.rle.to_array,
    }


def to_text(given: Operands) -> dict[str, Callable[[], Any]]:
    return {
        OURS: lambda: RunSet.from_mask(given.mask).to_coco(given.shape),
        "pycocotools": lambda: pycocotools.mask.encode(numpy.asfortranarray(given.bytes)),
        "rlemasklib": lambda: RLEMask.from_array(given.bytes).to_dict(),
    }


def from_text(given: Operands) -> dict[str, Callable[[], Any]]:
    return {
        OURS: lambda: coco_to_mask(given.coco),
        "kivdataconvert, by rows": lambda: RunSet.from_coco(given.coco).to_mask(given.shape),
        "pycocotools": lambda: pycocotools.mask.decode(given.coco),
        "rlemasklib": lambda: RLEMask.from_dict(given.coco).to_array(),
        "rlemasklib, by rows": lambda: RLEMask.from_dict(given.coco).to_array(order="C"),
    }


def union(given: Operands) -> dict[str, Callable[[], Any]]:
    pixels.shape = given.shape
    return {
        OURS: lambda: given.a | given.b,
        "pycocotools": lambda: pycocotools.mask.merge([given.coco, given.other_coco]),
        "rlemasklib": lambda: given.rle | given.other_rle,
        "NumPy, masks": lambda: given.mask | given.other,
    }


def intersection(given: Operands) -> dict[str, Callable[[], Any]]:
    pixels.shape = given.shape
    return {
        OURS: lambda: given.a & given.b,
        "pycocotools": lambda: pycocotools.mask.merge([given.coco, given.other_coco], intersect=True),
        "rlemasklib": lambda: given.rle & given.other_rle,
        "NumPy, masks": lambda: given.mask & given.other,
    }


def iou(given: Operands) -> dict[str, Callable[[], Any]]:
    return {
        OURS: lambda: given.a.iou(given.b),
        "pycocotools": lambda: pycocotools.mask.iou([given.coco], [given.other_coco], [False])[0, 0],
        "rlemasklib": lambda: given.rle.iou(given.other_rle),
        "NumPy, masks": lambda: (given.mask & given.other).sum() / (given.mask | given.other).sum(),
    }


def labelling(given: Operands) -> dict[str, Callable[[], Any]]:
    return {
        OURS: lambda: RunSet.from_mask(given.mask).label_image(given.shape),
        "scikit-image": lambda: skimage.measure.label(given.mask),
        "SciPy": lambda: scipy.ndimage.label(given.mask, EVERYWHERE)[0],
        "OpenCV": lambda: cv2.connectedComponents(given.bytes)[1],
    }


def sorted_areas(result: Any) -> list[int]:
    return sorted(int(area) for area in result)


def few_measures(given: Operands) -> dict[str, Callable[[], Any]]:
    def of_scikit_image() -> Any:
        labels = skimage.measure.label(given.mask)
        return skimage.measure.regionprops_table(labels, properties=("area", "bbox", "centroid"))["area"]

    def of_scipy() -> Any:
        labels, count = scipy.ndimage.label(given.mask, EVERYWHERE)
        scipy.ndimage.find_objects(labels)
        scipy.ndimage.center_of_mass(given.mask, labels, numpy.arange(1, count + 1))
        return numpy.bincount(labels.ravel())[1:]

    return {
        OURS: lambda: RunSet.from_mask(given.mask).summarize_components()["area"],
        "OpenCV": lambda: cv2.connectedComponentsWithStats(given.bytes)[2][1:, cv2.CC_STAT_AREA],
        "rlemasklib": lambda: RLEMask.from_array(given.bytes).connected_component_stats(8)[0],
        "SciPy": of_scipy,
        "scikit-image": of_scikit_image,
    }


def many_measures(given: Operands) -> dict[str, Callable[[], Any]]:
    names = ("area", "bbox", "centroid", "orientation", "axis_major_length", "axis_minor_length", "perimeter_crofton",
             "euler_number", "feret_diameter_max")  # fmt: skip
    return {
        OURS: lambda: RunSet.from_mask(given.mask).measure_components()["area"],
        "scikit-image": lambda: skimage.measure.regionprops_table(skimage.measure.label(given.mask), properties=names)["area"],
    }


def holes(given: Operands) -> dict[str, Callable[[], Any]]:
    pixels.shape = given.shape
    return {
        OURS: lambda: RunSet.from_mask(given.mask).fill_holes().to_mask(given.shape),
        OURS_ON_RUNS: given.a.fill_holes,
        "SciPy": lambda: scipy.ndimage.binary_fill_holes(given.mask),
    }


def dilation(given: Operands) -> dict[str, Callable[[], Any]]:
    pixels.shape = given.shape
    element, square = Element.rectangle(15, 15), numpy.ones((15, 15), "uint8")
    separable = skimage.morphology.footprint_rectangle((15, 15), decomposition="separable")
    return {
        OURS: lambda: RunSet.from_mask(given.mask).dilate(element).to_mask(given.shape),
        OURS_ON_RUNS: lambda: given.a.dilate(element),
        "OpenCV": lambda: cv2.dilate(given.bytes, square),
        "rlemasklib, runs in, runs out": lambda: given.rle.dilate("square", 15),
        "scikit-image": lambda: skimage.morphology.dilation(given.mask, separable),
        "SciPy": lambda: scipy.ndimage.binary_dilation(given.mask, square),
    }


def borders(given: Operands) -> dict[str, Callable[[], Any]]:
    def of_opencv() -> Any:
        contours, _ = cv2.findContours(given.bytes, cv2.RETR_CCOMP, cv2.CHAIN_APPROX_NONE)
        return [[contour[:, 0] for contour in contours]]

    return {
        OURS: lambda: RunSet.from_mask(given.mask).borders(),
        OURS_ON_RUNS: given.a.borders,
        "OpenCV": of_opencv,
    }


def points(components: Any) -> numpy.ndarray:
    return numpy.concatenate([border for component in components for border in component])


def chunked_labels(given: Operands) -> dict[str, Callable[[], Any]]:
    def of_dask_image() -> Any:
        return dask_image.ndmeasure.label(given.chunked, EVERYWHERE)[0].compute()

    return {
        OURS: lambda: kivdataconvert.dask.label(given.chunked).compute(),
        "dask-image": of_dask_image,
    }


def chunked_areas(given: Operands) -> dict[str, Callable[[], Any]]:
    def of_dask_image() -> Any:
        labels, count = dask_image.ndmeasure.label(given.chunked, EVERYWHERE)
        return dask.array.bincount(labels.ravel(), minlength=int(count.compute()) + 1).compute()[1:]

    return {
        OURS: lambda: kivdataconvert.dask.measure_components(given.chunked).compute()["area"],
        "dask-image, areas alone": of_dask_image,
    }


def partition(labels: numpy.ndarray) -> tuple[numpy.ndarray, ...]:
    """The same for label images that differ in nothing but their numbers."""
    firsts, places = numpy.unique(labels, return_index=True, return_inverse=True)[1:]
    return (firsts[places].reshape(labels.shape),)


SECTIONS = {
    "Into runs and back": [
        Work("mask to runs", extraction, pixels),
        Work("runs to mask", painting, pixels),
        Work("mask to COCO text", to_text, pixels),
        Work("COCO text to mask", from_text, pixels),
    ],
    "Set operations": [
        Work("union", union, pixels),
        Work("intersection", intersection, pixels),
        Work("intersection over union", iou, numpy.float32),
    ],
    "Components": [
        Work("mask to label image", labelling, partition),
        Work("mask to areas, boxes, centroids", few_measures, sorted_areas),
        Work("mask to all measures", many_measures, sorted_areas),
    ],
    "Morphology and borders": [
        Work("fill holes, mask to mask", holes, pixels),
        Work("dilation by 15 × 15, mask to mask", dilation, pixels),
        Work("mask to border points", borders, points),
    ],
    "In chunks, by Dask": [
        Work("chunks to label image", chunked_labels, partition),
        Work("chunks to measures of components", chunked_areas, sorted_areas),
    ],
}
