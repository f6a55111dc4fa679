"use strict";

// The link as a QR code: dark on white in every theme, since many readers see no inverted ones,
// with the quiet zone of four modules that they need. A module is four pixels, a whole number, so
// that all are of one size; a style sheet may make it larger.
function drawQrCode(container, text) {
    const quiet = 4;
    const code = qrcode(0, "M");
    code.addData(text);
    code.make();
    const modules = code.getModuleCount();
    let path = "";
    for (let row = 0; row < modules; row += 1) {
        for (let column = 0; column < modules; column += 1) {
            if (code.isDark(row, column)) path += `M${column + quiet} ${row + quiet}h1v1h-1z`;
        }
    }
    const create = (name, attributes) => {
        const element = document.createElementNS("http://www.w3.org/2000/svg", name);
        for (const [key, value] of Object.entries(attributes)) element.setAttribute(key, value);
        return element;
    };
    const size = modules + 2 * quiet;
    const picture = create("svg", {
        width: size * 4, height: size * 4,
        viewBox: `0 0 ${size} ${size}`, "shape-rendering": "crispEdges", "aria-hidden": "true" });
    picture.append(
        create("rect", { width: size, height: size, fill: "#fff" }),
        create("path", { d: path, fill: "#000" }));
    container.replaceChildren(picture);
}
