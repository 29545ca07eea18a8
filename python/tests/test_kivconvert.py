# SPDX-License-Identifier: MIT
"""COCO data sets of kivconvert are those of pycocotools, where both are there."""

from __future__ import annotations

import json
import os
import pathlib
import subprocess

import numpy
import pytest
from conftest import blobs

from kivdataconvert import RunSet

PROGRAM = pathlib.Path(
    os.environ.get("KIVCONVERT", pathlib.Path(__file__).parents[2] / "build/release/tools/kivconvert/kivconvert")
)
coco = pytest.importorskip("pycocotools.coco")
pytestmark = pytest.mark.skipif(not PROGRAM.exists(), reason="kivconvert is not built")


def kivconvert(*arguments: object) -> None:
    subprocess.run([PROGRAM, *map(str, arguments)], check=True)


@pytest.fixture
def masks(tmp_path: pathlib.Path) -> dict[str, numpy.ndarray]:
    """A folder of masks, by file name."""
    made = {f"{seed:02}.pgm": blobs(40 + 7 * seed, 90 - 5 * seed, seed) for seed in range(10)}
    made["dots.pgm"] = numpy.random.default_rng(1).random((30, 40)) < 0.3
    (tmp_path / "masks").mkdir()
    for name, mask in made.items():
        header = f"P5 {mask.shape[1]} {mask.shape[0]} 255\n".encode()
        (tmp_path / "masks" / name).write_bytes(header + (mask * numpy.uint8(255)).tobytes())
    return made


def test_counts(tmp_path: pathlib.Path, masks: dict[str, numpy.ndarray]) -> None:
    kivconvert("dataset", tmp_path / "masks", "-o", tmp_path / "set.json", "--by", "component", "--segmentation", "counts", "--measures")
    theirs = coco.COCO(str(tmp_path / "set.json"))
    for image in theirs.loadImgs(theirs.getImgIds()):
        mask = masks[pathlib.Path(image["file_name"]).with_suffix(".pgm").name]
        parts = RunSet.from_mask(mask).components()
        annotations = theirs.loadAnns(theirs.getAnnIds(image["id"]))
        assert [RunSet.from_mask(theirs.annToMask(annotation)) for annotation in annotations] == parts
        assert [annotation["area"] for annotation in annotations] == [part.area for part in parts]
        for annotation, part in zip(annotations, parts):
            (height, width), box = part.box.shape, part.box
            assert annotation["bbox"] == [box.col_begin, box.row_begin, width, height]
    assert len(theirs.getImgIds()) == len(masks)


def test_categories(tmp_path: pathlib.Path, masks: dict[str, numpy.ndarray]) -> None:
    (tmp_path / "masks" / "dots").mkdir()
    (tmp_path / "masks" / "dots.pgm").rename(tmp_path / "masks" / "dots" / "dots.pgm")
    kivconvert("dataset", tmp_path / "masks", "--recursive", "-o", tmp_path / "set.json", "--by", "file")
    theirs = coco.COCO(str(tmp_path / "set.json"))
    assert [category["name"] for category in theirs.loadCats(theirs.getCatIds())] == ["dots", "object"]
    [annotation] = theirs.loadAnns(theirs.getAnnIds(catIds=theirs.getCatIds(catNms=["dots"])))
    assert theirs.loadImgs(annotation["image_id"])[0]["file_name"] == "dots/dots.pgm"
    assert RunSet.from_mask(theirs.annToMask(annotation)) == RunSet.from_mask(masks["dots.pgm"])


def test_polygons(tmp_path: pathlib.Path, masks: dict[str, numpy.ndarray]) -> None:
    """Polygons run along pixel edges, and their rule for such is ours: the same pixels, where there are no holes."""
    kivconvert("dataset", tmp_path / "masks", "-o", tmp_path / "counts.json", "--by", "component", "--segmentation", "counts")
    kivconvert("dataset", tmp_path / "counts.json", "-o", tmp_path / "polygons.json", "--segmentation", "polygons")
    theirs = coco.COCO(str(tmp_path / "polygons.json"))
    with_holes = 0
    for image in theirs.loadImgs(theirs.getImgIds()):
        mask = masks[pathlib.Path(image["file_name"]).with_suffix(".pgm").name]
        annotations = theirs.loadAnns(theirs.getAnnIds(image["id"]))
        for annotation, part in zip(annotations, RunSet.from_mask(mask).components()):
            if part.holes():
                with_holes += 1  # they take rings of holes for pixels
            else:
                assert RunSet.from_mask(theirs.annToMask(annotation)) == part
    assert with_holes < len(theirs.getAnnIds()) // 2
    kivconvert("dataset", tmp_path / "polygons.json", "-o", tmp_path / "again.json", "--segmentation", "counts")
    segmentations = [
        [annotation["segmentation"] for annotation in json.loads((tmp_path / name).read_text())["annotations"]]
        for name in ("counts.json", "again.json")
    ]
    assert segmentations[0] == segmentations[1]
