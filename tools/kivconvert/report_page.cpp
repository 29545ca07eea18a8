// SPDX-License-Identifier: MIT
#include "kivconvert/report_page.h"

#include <KivRLC/KivRunMeasures.h>
#include <KivRLC/KivRunOutlines.h>
#include <KivRLC/KivRunTransforms.h>

#include <algorithm>
#include <fmt/format.h>
#include <iterator>

namespace kivconvert
{
namespace
{

constexpr int thumbnail_side = 64;

/// Only as many rows are in the page as fit on a screen or two; the rest follow as the reader scrolls.
constexpr const char* page_begin = R"html(<!DOCTYPE html>
<html lang="en"><head><meta charset="utf-8"><title>kivconvert report</title>
<meta name="viewport" content="width=device-width">
<style>
body{font:14px/1.4 system-ui,sans-serif;margin:1em}
table{border-collapse:collapse;margin-top:1em}
th,td{padding:2px 8px;text-align:right;border-bottom:1px solid #ddd}
th{position:sticky;top:0;background:#fff;cursor:pointer;white-space:nowrap}
td.text{text-align:left}
svg.shape{width:48px;height:48px;fill:#2fbf7155;stroke:#e8590c;fill-rule:evenodd}
svg.shape path{vector-effect:non-scaling-stroke}
#histogram{width:100%;max-width:720px;height:140px;fill:#2fbf71}
label{margin-right:1em}
</style></head><body>
<h1>Objects</h1>
<p><label>Name has <input id="name" type="search"></label>
<label>Area from <input id="least" type="number" min="0"></label>
<label>to <input id="most" type="number" min="0"></label>
<output id="count"></output></p>
<svg id="histogram" viewBox="0 0 720 140" role="img" aria-label="Histogram of areas"></svg>
<table><thead><tr id="head"></tr></thead><tbody id="body"></tbody></table>
<script>
"use strict";
const columns = )html";

constexpr const char* page_end = R"html(;
const element = (id) => document.getElementById(id);
const rowsAtATime = 100;
let shown = rows, drawn = 0, sortedBy = null, ascending = true;

function cell(value) {
    const td = document.createElement("td");
    if (typeof value === "string") td.className = "text";
    td.textContent = value === null || value === undefined ? "" : Number.isInteger(value) || typeof value === "string"
        ? value : value.toFixed(3);
    return td;
}

function picture(shape) {
    const space = "http://www.w3.org/2000/svg";
    const svg = document.createElementNS(space, "svg"), path = document.createElementNS(space, "path");
    svg.setAttribute("class", "shape");
    svg.setAttribute("viewBox", `-1 -1 ${shape.width + 2} ${shape.height + 2}`);
    path.setAttribute("d", shape.path);
    svg.append(path);
    const td = document.createElement("td");
    td.append(svg);
    return td;
}

function drawMore() {
    const stop = Math.min(drawn + rowsAtATime, shown.length);
    for (; drawn < stop; ++drawn) {
        const row = shown[drawn], tr = document.createElement("tr");
        tr.append(picture(row.thumbnail), ...columns.map((name) => cell(row[name])));
        element("body").append(tr);
    }
}

function drawHistogram() {
    const bars = 40, areas = shown.map((row) => row.area);
    const most = areas.reduce((a, b) => Math.max(a, b), 1), counts = new Array(bars).fill(0);
    for (const area of areas) ++counts[Math.min(bars - 1, Math.floor(area * bars / most))];
    const highest = Math.max(1, ...counts);
    element("histogram").innerHTML = counts.map((count, i) => {
        const height = 120 * count / highest;
        return `<rect x="${18 * i}" y="${120 - height}" width="17" height="${height}"><title>${
            Math.ceil(i * most / bars)} to ${Math.ceil((i + 1) * most / bars)} pixels: ${count}</title></rect>`;
    }).join("") + `<text x="0" y="136" fill="#000">0</text><text x="720" y="136" text-anchor="end" fill="#000">${most}</text>`;
}

function draw() {
    element("body").replaceChildren();
    drawn = 0;
    drawMore();
    element("count").textContent = `${shown.length} of ${rows.length}`;
}

function sortBy(name) {
    ascending = sortedBy === name ? !ascending : true;
    sortedBy = name;
    const sign = ascending ? 1 : -1;
    const order = (a, b) => a === b ? 0 : a === null ? 1 : b === null ? -1 : a < b ? -sign : sign;
    shown.sort((a, b) => order(a[name], b[name]));
    draw();
}

function filter() {
    const part = element("name").value, least = element("least").value, most = element("most").value;
    shown = rows.filter((row) => columns.some((name) => typeof row[name] === "string" && row[name].includes(part)) &&
        (least === "" || row.area >= +least) && (most === "" || row.area <= +most));
    draw();
    drawHistogram();
}

element("head").append(document.createElement("th"), ...columns.map((name) => {
    const th = document.createElement("th");
    th.textContent = name;
    th.addEventListener("click", () => sortBy(name));
    return th;
}));
for (const id of ["name", "least", "most"]) element(id).addEventListener("input", filter);
addEventListener("scroll", () => {
    if (innerHeight + scrollY > document.body.scrollHeight - 800) drawMore();
});
filter();
</script></body></html>
)html";

/// JSON that ends no script.
std::string in_script(const Rows& rows)
{
    std::string text = rows_as_json(rows);
    for (std::size_t at = text.find("</"); at != text.npos; at = text.find("</", at)) {
        text.replace(at, 2, "<\\/");
    }
    return text;
}

std::string path_of(const KivRunSet& pixels)
{
    const KivRuns::Outlines outlines = KivRuns::OutlinesOf(pixels);
    std::string path;
    for (const KivRuns::OutlineRing& ring : outlines.rings) {
        for (std::size_t i = ring.begin; i < ring.end; ++i) {
            fmt::format_to(std::back_inserter(path), "{}{} {}", i == ring.begin ? "M" : "L", outlines.corners[i].x,
                           outlines.corners[i].y);
        }
        path += "Z";
    }
    return path;
}

} // namespace

TableRow thumbnail_of(const KivRunSet& pixels)
{
    if (pixels.Empty()) {
        return {{"width", 1}, {"height", 1}, {"path", ""}};
    }
    const KivRunBox box = KivRuns::BoundingBox(pixels);
    const int width = box.colEnd - box.colBegin + 1;
    const int height = box.rowEnd - box.rowBegin + 1;
    const int factor = (std::max(width, height) + thumbnail_side - 1) / thumbnail_side;
    const KivRunSet placed = KivRuns::Translate(pixels, -box.colBegin, -box.rowBegin);
    return {{"width", (width + factor - 1) / factor},
            {"height", (height + factor - 1) / factor},
            {"path", path_of(KivRuns::ScaleDown(placed, factor, factor, KivRuns::BlockRule::Any))}};
}

std::string report_page(const std::vector<std::string>& columns, const Rows& rows)
{
    return page_begin + TableRow(columns).dump() + ";\nconst rows = " + in_script(rows) + page_end;
}

} // namespace kivconvert
