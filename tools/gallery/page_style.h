// SPDX-License-Identifier: MIT
// How the page looks. The colours of the legend are those of the pictures, see drawing.cpp.
#pragma once

#include <string_view>

namespace gallery
{

inline constexpr std::string_view page_style = R"css(
:root { color-scheme: light dark; --page: #f3f5f8; --card: #fff; --ink: #1c2430; --quiet: #566373; --line: #d9dfe7;
  --link: #1d5fc9; --outer: #0d8a5c; --hole: #dd6b12 }
@media (prefers-color-scheme: dark) { :root { --page: #0b0f14; --card: #171d26; --ink: #e8edf4; --quiet: #9aa8b9;
  --line: #2a3441; --link: #86b4ff; --outer: #35d39a; --hole: #ff9b45 } }
* { box-sizing: border-box }
html { scroll-padding-top: 1rem }
body { margin: 0; background: var(--page); color: var(--ink); font: 1rem/1.55 system-ui, "DejaVu Sans", sans-serif }
a { color: var(--link) }
code { font: .92em ui-monospace, "DejaVu Sans Mono", monospace; overflow-wrap: anywhere }
.layout { max-width: 96rem; margin: auto; padding: clamp(1rem, 3vw, 2.5rem) }
h1 { font-size: clamp(1.7rem, 4vw, 2.6rem); line-height: 1.15; margin: 0 0 .6rem }
h2 { font-size: 1.6rem; line-height: 1.2; margin: 3rem 0 1rem }
h3 { font-size: 1.15rem; margin: 0 }
.layout > header { margin-bottom: 1.5rem }
header p, article p { max-width: 46rem; margin: .4rem 0 0 }
nav h2 { font-size: .95rem; margin: 1rem 0 .3rem }
nav h2:first-child { margin-top: 0 }
nav ul { list-style: none; margin: 0; padding: 0; display: flex; flex-wrap: wrap; gap: 0 .9rem }
nav a { font-size: .86rem; text-decoration: none; display: block; padding: .2rem 0 }
nav a:hover { text-decoration: underline }
article { background: var(--card); border: 1px solid var(--line); border-radius: .8rem; margin: 0 0 1.4rem;
  padding: clamp(.9rem, 2vw, 1.5rem) }
.panels { display: grid; gap: 1.2rem; margin-top: 1rem; align-items: start;
  grid-template-columns: repeat(auto-fill, minmax(min(100%, 21rem), 1fr)) }
.panels.wide { grid-template-columns: repeat(auto-fill, minmax(min(100%, 29rem), 1fr)) }
figure { margin: 0 }
.overview figure + figure { margin-top: 1.2rem }
figcaption { font-size: .88rem; color: var(--quiet); padding-top: .35rem }
img { display: block; width: 100%; height: auto }
.found { font-size: .88rem; color: var(--quiet) }
.found b { color: var(--outer) }
.found .failed { color: #e5383b }
.overview { display: grid; gap: 1.2rem; margin: 1.5rem 0; align-items: start }
.scene { position: relative; display: block }
.scene span { position: absolute; border: 2px solid #ffb02e; border-radius: 2px }
.legend { list-style: none; display: flex; flex-wrap: wrap; gap: .5rem 1.4rem; margin: 1rem 0 0; padding: 0;
  font-size: .9rem }
.legend li::before { content: ""; display: inline-block; width: 1.1em; height: 1.1em; margin-right: .45em;
  vertical-align: -.2em; border-radius: .2em; background: var(--swatch) }
.legend .line::before { height: .3em; vertical-align: .2em }
@media (min-width: 40rem) {
  .overview { grid-template-columns: 2.25fr 1fr }
}
@media (min-width: 75rem) {
  .layout { display: grid; grid-template: auto 1fr / 15rem minmax(0, 1fr); column-gap: 2.5rem }
  nav { grid-area: 1 / 1 / 3; position: sticky; top: 0; max-height: 100vh; overflow-y: auto; align-self: start;
    padding: 1rem 0 }
  nav ul { display: block }
}
)css";

} // namespace gallery
