// The search page: finds the entries of search-index.js that contain all words of the query.
"use strict";

(function () {
    var mostResults = 60;
    var excerptLength = 180;
    var field = document.getElementById("query");
    var count = document.getElementById("count");
    var list = document.getElementById("results");

    function words(query) {
        return query.toLowerCase().split(/[\s().:]+/).filter(function (word) {
            return word !== "";
        });
    }

    // 0 when a word is missing; matches in the title count more than matches in the text.
    function score(entry, searched) {
        var title = entry.title.toLowerCase();
        var text = entry.text.toLowerCase();
        var total = 0;
        for (var i = 0; i < searched.length; ++i) {
            if (title === searched[i])
                total += 100;
            else if (title.indexOf(searched[i]) === 0)
                total += 30;
            else if (title.indexOf(searched[i]) > 0)
                total += 20;
            else if (text.indexOf(searched[i]) >= 0)
                total += 1;
            else
                return 0;
        }
        // Of equal matches, members come before sections of the guides.
        return entry.address.indexOf("qml-") === 0 ? total + 0.5 : total;
    }

    function find(query) {
        var searched = words(query);
        if (searched.length === 0)
            return [];
        return searchIndex.map(function (entry) {
            return { entry: entry, score: score(entry, searched) };
        }).filter(function (result) {
            return result.score > 0;
        }).sort(function (a, b) {
            return b.score - a.score || a.entry.title.localeCompare(b.entry.title);
        }).map(function (result) {
            return result.entry;
        });
    }

    function excerpt(text, searched) {
        var first = text.toLowerCase().indexOf(searched[0]);
        var begin = Math.max(0, first - excerptLength / 3);
        if (begin > 0)
            begin = text.indexOf(" ", begin) + 1;
        return (begin > 0 ? "… " : "") + text.substr(begin, excerptLength) +
            (begin + excerptLength < text.length ? " …" : "");
    }

    function item(entry, searched) {
        var link = document.createElement("a");
        link.href = entry.address;
        link.textContent = entry.title;
        var page = document.createElement("span");
        page.className = "page";
        page.textContent = entry.page;
        var text = document.createElement("p");
        text.textContent = excerpt(entry.text, searched);
        var element = document.createElement("li");
        element.appendChild(link);
        element.appendChild(page);
        element.appendChild(text);
        return element;
    }

    function show() {
        var found = find(field.value);
        list.textContent = "";
        found.slice(0, mostResults).forEach(function (entry) {
            list.appendChild(item(entry, words(field.value)));
        });
        count.textContent = words(field.value).length === 0 ? "Members, sections and pages with all words are listed."
            : found.length === 0 ? "Nothing found."
            : found.length > mostResults ? "The first " + mostResults + " of " + found.length + " results."
            : found.length === 1 ? "1 result." : found.length + " results.";
    }

    var query = new RegExp("[?&]q=([^&]*)").exec(location.search);
    if (query)
        field.value = decodeURIComponent(query[1].replace(/\+/g, " "));
    field.addEventListener("input", show);
    document.getElementById("search-form").addEventListener("submit", function (event) {
        event.preventDefault();
    });
    show();
})();
