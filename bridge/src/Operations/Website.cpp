#include "Operations/Operations.h"

namespace bridge {

static constexpr const char* page = R"(<!doctype html>
<html lang="en">
<meta charset="utf-8">
<title>Quorvel</title>
<h1>Quorvel</h1>
<p>Remote online notarization. This is the local service; open the Quorvel desktop program to use it.</p>
</html>
)";

static void show(Service&, Call& call)
{
    call.response().set_content(page, "text/html; charset=utf-8");
}

Routes websiteRoutes()
{
    static const Route routes[] = {{"GET", "/", Access::Everybody, show}};
    return routes;
}

} // namespace bridge
