// A leaderboard: who is on top, what place somebody has and who stands around him, how many have more, what it takes to
// be among the best tenth.  The players and the season that they play are made up, and the same each time.
#include "ovant.hpp"

#include <cstdio>
#include <functional>
#include <new>
#include <random>
#include <string>
#include <vector>

// A counted link lets the tree say how many records stand in front of one, and which one has so many in front of it.
struct Player {
    std::string name;
    int points = 1000;
    int games = 0;
    ovant::counted_link standing;
    ovant::link by_name;
};
using Board = ovant::multiset<&Player::standing, &Player::points, std::greater<>>; // of equals, who came first
using Names = ovant::set<&Player::by_name, &Player::name>;

// A new result: the player leaves his place and comes in at another one.
void score(Board &board, Player &player, int points) {
    board.erase(player);
    player.points += points;
    ++player.games;
    board.insert(player);
}

// Two players of nearly one rank meet, and the better one wins more often than not.
void play(Board &board, std::mt19937 &random) {
    const auto below = [&](std::size_t limit) { return static_cast<std::ptrdiff_t>(random() % limit); };
    auto other = board.nth(static_cast<std::size_t>(below(board.size() - 20)));
    Player &first = *other;
    Player &second = *(other += 1 + below(20)); // so many places further down
    const int stake = 8 + (second.points - first.points) / 40;
    const bool first_wins = random() % 100 < 54;
    score(board, first, first_wins ? stake : -stake);
    score(board, second, first_wins ? -stake : stake);
}

// A page of the board that begins at a place, 0 for the first one.
void print(const Board &board, std::size_t place, int lines, const Player *marked = nullptr) {
    for (auto at = board.nth(place); at != board.end() && lines > 0; ++at, --lines)
        std::printf("%5zu.%c %-9s %5d points, %3d games\n", ++place, &*at == marked ? '>' : ' ', at->name.c_str(),
                    at->points, at->games);
}

// Where somebody stands, with two lines above him and two below.
void print_around(const Board &board, const Player &player) {
    const std::size_t place = board.rank(player);
    print(board, place < 2 ? 0 : place - 2, 5, &player);
}

std::string name_of(unsigned n) {
    constexpr const char *first[] = {"Ba", "Do", "Fe", "Gu", "Ki", "La", "Mo", "Ne", "Pi", "Ru", "Sa", "Ti"};
    constexpr const char *last[] = {"bo", "da", "fi", "go", "ka", "lo", "mi", "na", "ri", "so", "ta", "zu"};
    return first[n % 12] + std::string(last[n / 12 % 12]) + std::to_string(n / 144);
}

int main() try {
    std::mt19937 random(64);
    std::vector<Player> players(2000); // a record must stay where it is while it is in a tree
    Board board;
    Names names;
    for (Player &player : players) {
        player.name = name_of(static_cast<unsigned>(&player - players.data()));
        board.insert(player);
        names.insert(player);
    }
    for (int game = 0; game < 20000; ++game)
        play(board, random);

    std::printf("The best of %zu:\n", board.size());
    print(board, 0, 10);
    std::printf("\nTiso7 and those around:\n");
    print_around(board, *names.find("Tiso7"));

    std::printf("\n%-22s %6s\n", "to be among the best", "points");
    for (const std::size_t percent : {1u, 10u, 50u, 90u})
        std::printf("%20zu %% %6d\n", percent, board.nth(board.size() * percent / 100 - 1)->points);
    std::printf("\n%zu have more than 1050 points, %zu from 950 to 1050, %zu less.\n",
                board.count(ovant::start, ovant::before(1050)), board.count(ovant::before(1050), ovant::after(950)),
                board.count(ovant::after(950), ovant::finish));

    const Board league = board.extract(ovant::start, ovant::before(board.nth(100)->points)); // still counted
    std::printf("The first league of %zu goes on without the others, who are %zu.\n", league.size(), board.size());
    std::printf("Its last one: %s\n", league.back().name.c_str());
} catch (const std::bad_alloc &) {
    return std::fprintf(stderr, "leaderboard: out of memory\n"), 1;
}
