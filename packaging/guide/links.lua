-- Links between the pages, as they lie after the build; what is not part of the guide is text.
-- GUIDE_PAGE: the page, guide/NAME or docs/NAME; GUIDE_PAGES: all of them; GUIDE_KIND: html or pdf.
local page = os.getenv("GUIDE_PAGE")
local pages = os.getenv("GUIDE_PAGES")
local book = os.getenv("GUIDE_KIND") == "pdf"
local folder = page:match("^%a+")

local function Target(path) -- "X.md", "../X.md" or "guide/X.md" as the name of a page
    local from_guide, from_docs = path:match("^%.%./([%w-]+)%.md$"), path:match("^guide/([%w-]+)%.md$")
    local beside = path:match("^([%w-]+)%.md$")
    if folder == "guide" then
        return from_guide and "docs/" .. from_guide or beside and "guide/" .. beside
    end
    return from_docs and "guide/" .. from_docs or beside and "docs/" .. beside
end

local function File(name)
    local where, stem = name:match("^(%a+)/(.*)$")
    if where == folder then return stem .. ".html" end
    return where == "docs" and "reference/" .. stem .. ".html" or "../" .. stem .. ".html"
end

local function Id(name, anchor)
    return name:gsub("/", "-") .. (anchor ~= "" and "--" .. anchor or "")
end

function Link(link)
    if link.target:match("^%a+:") then return nil end
    local path, anchor = link.target:match("^([^#]*)#?(.*)$")
    local name = path == "" and page or Target(path)
    if not name or not pages:find(" " .. name .. " ", 1, true) then return link.content end
    if book then
        link.target = "#" .. Id(name, anchor)
    elseif path ~= "" then
        link.target = File(name) .. (anchor ~= "" and "#" .. anchor or "")
    end
    return link
end

function Header(header)
    if book then header.identifier = Id(page, header.identifier) end
    return header
end

function Image(image)
    if not book then return pandoc.Link({image}, image.src, "", {class = "picture"}) end
    if folder == "docs" then image.src = "../" .. image.src end
    return image
end

-- Wide tables are moved on their own, not with the page. On a narrow screen a row of more than two columns becomes a
-- list, whose entries are named after the columns.
function Table(grid)
    local names = {}
    for _, row in ipairs(grid.head.rows) do
        for i, cell in ipairs(row.cells) do names[i] = pandoc.utils.stringify(cell.contents) end
    end
    for _, body in ipairs(grid.bodies) do
        for _, row in ipairs(body.body) do
            for i, cell in ipairs(row.cells) do
                if #names > 2 and i > 1 and names[i] ~= "Meaning" then cell.attr.attributes["data-label"] = names[i] end
            end
        end
    end
    return pandoc.Div({grid}, {class = #names > 2 and "table wide" or "table"})
end
