-- pandoc filter: turns a guide in Markdown into the parts of a qdoc page. Headings become sections of qdoc, so that
-- they appear in its tables of contents and can be linked; everything else stays HTML. guide.template is the page.

-- Titles of the pages come from their first heading.
local title

-- The first heading of a guide, which is the title of its page.
local function title_of(file)
    local folder = PANDOC_STATE.input_files[1]:match("^(.*/)")
    for line in io.lines(folder .. file) do
        return line:match("^# (.*)$")
    end
end

-- Guides of the manual, by file name; other documents are not part of it.
local pages = {}
for name in string.gmatch(os.getenv("ZELTACONNECT_GUIDES") or "", "%S+") do
    pages[name .. ".md"] = name .. ".html"
end

-- Pages of the files that the guides explain, named as in CMakeLists.txt.
for name in string.gmatch(os.getenv("ZELTACONNECT_FILES") or "", "%S+") do
    pages[name] = name:lower():gsub("[^a-z0-9]+", "-") .. ".html"
end

local function heading(element)
    local text = pandoc.utils.stringify(element)
    if element.level == 1 then
        title = text
        return {}
    end
    return pandoc.RawBlock("html", "\\endraw\n\n\\section" .. (element.level - 1) .. " " .. text .. "\n\n\\raw HTML")
end

local function link(element)
    local file, anchor = element.target:match("^([^#:]*)(.*)$")
    if file == "" or element.target:match("^%a+:") then
        return nil
    end
    if pages[file] then
        element.target = pages[file] .. anchor
        -- A link that shows the name of the file.
        if pandoc.utils.stringify(element) == file then
            element.content = title_of(file)
        end
        return element
    end
    return element.content
end

local function meta(data)
    data.title = title
    data.page = os.getenv("ZELTACONNECT_GUIDE") .. ".html"
    return data
end

return { { Header = heading, Link = link }, { Meta = meta } }
