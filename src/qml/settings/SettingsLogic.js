.pragma library

// Decisions of the settings panels that are not bindings: which page or tab a
// page id leads to, how the hotkey editor names a key press, how sequences
// read in each look, the language search and the display arrangement.

// Where a page is a place in a list of pages: -1 for an id the list lacks.
function pageIndex(pages, pageId) {
    for (var i = 0; i < pages.length; ++i) {
        if (pages[i].id === pageId)
            return i;
    }
    return -1;
}

// The Linux look shows several pages on one tab.
var linuxTabs = { "general": 0, "spotlight": 0, "drawing": 1, "effects": 1, "keys": 1, "capture": 2,
                  "hotkeys": 3, "displays": 4, "portal": 4 };

// -1 for an id the look does not know.
function linuxTabFor(pageId) {
    return linuxTabs.hasOwnProperty(pageId) ? linuxTabs[pageId] : -1;
}

// Qt's key codes and modifier bits, as key events carry them.
var keyA = 0x41, keyZ = 0x5a, key0 = 0x30, key9 = 0x39;
var keyF1 = 0x01000030, keyF24 = 0x01000047, keyEscape = 0x01000000;
var shiftBit = 0x02000000, controlBit = 0x04000000, altBit = 0x08000000, metaBit = 0x10000000;

// Letters, digits, F1 to F24 and Esc have a name; every other key, modifiers
// alone, Space and Tab among them, has none and cannot be recorded.
function keyName(key) {
    if ((key >= keyA && key <= keyZ) || (key >= key0 && key <= key9))
        return String.fromCharCode(key);
    if (key >= keyF1 && key <= keyF24)
        return "F" + (key - keyF1 + 1);
    return key === keyEscape ? "Esc" : "";
}

// The held modifiers in the store's order, then the key; "" when the key has
// no name. metaName is how the look writes the logo key ("Win" or "Super").
function sequenceFor(key, modifiers, metaName) {
    var name = keyName(key);
    if (name === "")
        return "";
    var parts = [];
    if (modifiers & controlBit)
        parts.push("Ctrl");
    if (modifiers & altBit)
        parts.push("Alt");
    if (modifiers & shiftBit)
        parts.push("Shift");
    if (modifiers & metaBit)
        parts.push(metaName);
    parts.push(name);
    return parts.join("+");
}

// What a key press does to the editor. The first Esc is recorded like any
// key; an Esc while the value is already "Esc" leaves the editor.
function editorKey(value, key, modifiers, metaName) {
    if (key === keyEscape && value === "Esc")
        return { "close": true, "value": value };
    var recorded = sequenceFor(key, modifiers, metaName);
    return { "close": false, "value": recorded === "" ? value : recorded };
}

// Stored sequences keep "Win"; a Linux desktop calls that key "Super".
function linuxText(sequence) {
    return sequence.split("+").map(function (part) { return part === "Win" ? "Super" : part; }).join("+");
}

function macText(sequence) {
    if (sequence === "")
        return "Not assigned";
    return sequence.replace("Ctrl", "Cmd").replace("Alt", "Option").replace("Win", "Cmd");
}

// Rows whose native name, English name or code holds the trimmed query,
// whatever the case.
function filterLanguages(languages, query) {
    var wanted = query.trim().toLowerCase();
    if (wanted === "")
        return languages;
    return languages.filter(function (language) {
        return [language.nativeName, language.englishName, language.code].some(function (text) {
            return text.toLowerCase().indexOf(wanted) >= 0;
        });
    });
}

// A zoom chip is lit when the stored zoom is within half a percent of it.
function scaleChipActive(stored, chip) {
    return Math.abs(stored - chip) <= 0.005;
}

// Boxes of the displays scaled into a drawing of the given size and centred;
// with no displays, one 1920 by 1080 display stands in for the bounds.
function arrangement(displays, width, height) {
    var geometries = displays.map(function (display) { return display.geometry; });
    var left = 0, top = 0, right = 1920, bottom = 1080;
    if (geometries.length > 0) {
        left = Math.min.apply(null, geometries.map(function (g) { return g.x; }));
        top = Math.min.apply(null, geometries.map(function (g) { return g.y; }));
        right = Math.max.apply(null, geometries.map(function (g) { return g.x + g.width; }));
        bottom = Math.max.apply(null, geometries.map(function (g) { return g.y + g.height; }));
    }
    var scale = Math.min((width - 16) / Math.max(1, right - left), (height - 16) / Math.max(1, bottom - top));
    var offsetX = (width - (right - left) * scale) / 2;
    var offsetY = (height - (bottom - top) * scale) / 2;
    return geometries.map(function (g) {
        return { "x": offsetX + (g.x - left) * scale, "y": offsetY + (g.y - top) * scale,
                 "width": Math.max(8, g.width * scale), "height": Math.max(8, g.height * scale) };
    });
}
