/* An order book.  A key of two parts keeps the orders of one price apart, so that a cancel costs a descent, and not
 * a walk along all orders of its price.  Where only the price matters a rank with the number 0 is the bound. */
#include <ovant_idioms.h>
#include <stdio.h>

/* Best price first, then first come; prices of the buyers are negative, so that one order serves both sides. */
struct rank {
    int64_t price;
    uint64_t number;
};
struct order {
    struct rank rank;
    int quantity;
    AVL_Link link;
};

static int compare(const void *node_key, const void *key) {
    const struct rank *node = (const struct rank *)node_key, *sought = (const struct rank *)key;
    const int by_price = (sought->price > node->price) - (sought->price < node->price);
    return by_price ? by_price : (sought->number > node->number) - (sought->number < node->number);
}
OVANT_TYPED(orders, struct order, link, rank, compare);

/* Takes up to quantity from the orders of the tree, the best ones first, down to the limit; what is left of it. */
static int match(AVL_Tree *tree, int quantity, int64_t limit) {
    struct order *best;
    while (quantity > 0 && (best = orders_first(tree)) != NULL && best->rank.price <= limit) {
        const int taken = best->quantity < quantity ? best->quantity : quantity;
        printf("%d at %d from order %u\n", taken, (int)best->rank.price, (unsigned)best->rank.number);
        quantity -= taken;
        best->quantity -= taken;
        if (best->quantity == 0)
            orders_take_first(tree);
    }
    return quantity;
}

int main(void) {
    struct order all[] = {
        {{101, 1}, 5, {0}}, {{100, 2}, 5, {0}}, {{100, 3}, 5, {0}}, {{100, 4}, 5, {0}}, {{-98, 5}, 9, {0}}};
    const struct rank from = {101, 0};
    AVL_Tree *sellers = orders_new(), *buyers = orders_new();
    int i;
    if (!sellers || !buyers)
        return 1;
    for (i = 0; i < 4; i++)
        orders_insert(sellers, &all[i]);
    orders_insert(buyers, &all[4]);

    orders_remove(sellers, &all[2]); /* cancelled by its record: the rank finds it among all of its price */
    printf("%d left to buy\n", match(sellers, 8, 101));
    printf("best buyer pays %d\n", -(int)orders_first(buyers)->rank.price);
    AVL_GetEqualGreater(sellers, &from); /* every seller who asks 101 or more leaves, at one cut */
    printf("best seller asks %d\n", (int)orders_first(sellers)->rank.price);

    AVL_Destruktor(buyers);
    AVL_Destruktor(sellers);
    return 0;
}

/* prints
5 at 100 from order 2
3 at 100 from order 4
0 left to buy
best buyer pays 98
best seller asks 100
*/
