// SPDX-License-Identifier: MIT
#include "gallery/page.h"

#include "gallery/page_style.h"
#include "kivconvert/files.h"

#include <filesystem>
#include <fmt/format.h>

namespace gallery
{
namespace
{

constexpr std::string_view introduction = R"html(<header>
<h1>KivDataConvert: a gallery</h1>
<p>Every function of the library at work on one scene, before and after. The pictures were drawn from what the functions
returned, and each result was checked while it was drawn. A click opens a picture by itself; those of single pixels stay
sharp at any size.</p>
)html";

constexpr std::string_view legend = R"html(<ul class="legend" aria-label="Colours">
<li style="--swatch:#3b82f6">a region and its runs; the first shape, A</li>
<li style="--swatch:#f59e0b">a region of interest; the second shape, B</li>
<li style="--swatch:#17a673">the result of a set operation</li>
<li style="--swatch:#e5383b">missing, compared with masks</li>
<li style="--swatch:#a144e0">more, compared with masks</li>
<li class="line" style="--swatch:var(--outer)">an outer border, or any contour</li>
<li class="line" style="--swatch:var(--hole)">the border of a hole</li>
</ul>
</header>
)html";

std::string image_element(const std::string& file, const std::string& alt, cv::Size size)
{
    return fmt::format("<img src=\"{}\" alt=\"{}\" width=\"{}\" height=\"{}\">", file, alt, size.width, size.height);
}

std::string figure(const std::string& file, const Panel& panel)
{
    return fmt::format("<figure><a href=\"{}\">{}</a><figcaption>{}</figcaption></figure>\n", file,
                       image_element(file, panel.alt, panel.size), panel.caption);
}

/// A box on the picture of the scene, in percent of its size.
std::string box(const cv::Rect& view, cv::Size scene)
{
    return fmt::format("<span style=\"left:{:.2f}%;top:{:.2f}%;width:{:.2f}%;height:{:.2f}%\"></span>",
                       100.0 * view.x / scene.width, 100.0 * view.y / scene.height, 100.0 * view.width / scene.width,
                       100.0 * view.height / scene.height);
}

std::string chapter_links(const Chapter& chapter)
{
    std::string html = fmt::format("<h2><a href=\"#{}\">{}</a></h2>\n<ul>\n", chapter.id, chapter.title);
    for (const Entry& entry : chapter.entries) {
        html += fmt::format("<li><a href=\"#{0}\"><code>{0}</code></a></li>\n", entry.function);
    }
    return html + "</ul>\n";
}

/// Writes pages and pictures into one folder.
class Writer
{
public:
    Writer(std::string folder, const Stage& stage) : folder_(std::move(folder)), stage_(stage)
    {
        std::filesystem::create_directories(folder_ + "/pictures");
    }

    void write(const std::vector<Chapter>& chapters) const
    {
        std::string html = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
                           "<title>KivDataConvert: a gallery</title>\n<link rel=\"icon\" href=\"data:,\">\n<style>";
        html += page_style;
        html += "</style>\n</head>\n<body>\n<div class=\"layout\">\n";
        html += introduction;
        html += overview();
        html += legend;
        html += "<nav aria-label=\"Functions\">\n";
        for (const Chapter& chapter : chapters) {
            html += chapter_links(chapter);
        }
        html += "</nav>\n<main>\n";
        for (const Chapter& chapter : chapters) {
            html += fmt::format("<section id=\"{0}\" aria-labelledby=\"{0}-title\">\n<h2 id=\"{0}-title\">{1}</h2>\n",
                                chapter.id, chapter.title);
            for (const Entry& entry : chapter.entries) {
                html += article(entry);
            }
            html += "</section>\n";
        }
        kivconvert::write_file(folder_ + "/index.html", html + "</main>\n</div>\n</body>\n</html>\n");
    }

private:
    /// The scene, and the two cut-outs as the camera sees them.
    std::string overview() const
    {
        const demo::Picture& camera = stage_.picture("camera");
        const cv::Size scene = camera.pixels.size();
        const Panel part("The cut-out of most pictures: the end of a slotted bar, 56 × 62 pixels",
                         "The end of a light metal bar with a round hole, so large that single pixels are seen.",
                         Drawing(part_view.size()).grey(camera.pixels(part_view)));
        const Panel lens("A smaller one for numbers: the lower edge of its hole, 22 × 7 pixels",
                         "A strip of 22 by 7 large grey pixels, dark in the middle and light on both sides.",
                         Drawing(lens_view.size()).grey(stage_.lens_grey.Mat()));
        return fmt::format("<div class=\"overview\">\n<figure><a class=\"scene\" href=\"{0}\">{1}{2}{3}</a>\n"
                           "<figcaption>The scene, {4} × {5} pixels, drawn by the demo. The boxes mark the two "
                           "cut-outs.</figcaption></figure>\n<div>\n",
                           relative(camera.file),
                           image_element(relative(camera.file),
                                         "Fourteen machined parts on a dark table: washers, nuts, bolts, bars, a "
                                         "bracket, a flange and a gear.",
                                         scene),
                           box(part_view, scene), box(lens_view, scene), scene.width, scene.height) +
               figure(saved("part", part), part) + figure(saved("lens", lens), lens) + "</div>\n</div>\n";
    }

    std::string article(const Entry& entry) const
    {
        const cv::Size first = entry.panels.front().size;
        std::string html = fmt::format("<article id=\"{0}\">\n<h3><code>{0}</code></h3>\n<p>{1}</p>\n"
                                       "<div class=\"panels{2}\">\n",
                                       entry.function, entry.text, first.width > 2 * first.height ? " wide" : "");
        int number = 0;
        for (const Panel& panel : entry.panels) {
            html += figure(saved(fmt::format("{}-{}", entry.function, ++number), panel), panel);
        }
        return html + fmt::format("</div>\n<p class=\"found\">{} {}</p>\n</article>\n",
                                  entry.holds ? "<b>✓</b>" : "<b class=\"failed\">✗ FAILED</b>", entry.found);
    }

    /// The panel's picture as a file that the page can name.
    std::string saved(const std::string& name, const Panel& panel) const
    {
        if (panel.svg.empty()) {
            return relative(panel.file);
        }
        const std::string file = "pictures/" + name + ".svg";
        kivconvert::write_file(folder_ + "/" + file, panel.svg);
        return file;
    }

    std::string relative(const std::string& file) const
    {
        return std::filesystem::path(file).lexically_relative(folder_).generic_string();
    }

    std::string folder_;
    const Stage& stage_;
};

} // namespace

void write_page(const std::string& folder, const Stage& stage, const std::vector<Chapter>& chapters)
{
    Writer(folder, stage).write(chapters);
}

} // namespace gallery
